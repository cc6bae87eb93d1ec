#pragma once

#include "panel/look/panel_text.h"
#include "panel/widgets/value_marks.h"

#include <QWidget>

#include <functional>

namespace servopanel::panel {

// A switch with two positions, off at the side where a line begins. Where its slider stands, the word on it and its
// colour tell the state. A touch is only reported: whoever owns the switch decides what it then shows.
class SwitchView : public QWidget {
public:
    SwitchView(QWidget* parent, PanelWords words);

    void setHandler(std::function<void()> touched) { touched_ = std::move(touched); }
    // A touch while it is not free.
    void setLockedHandler(std::function<void()> touched) { lockedTouched_ = std::move(touched); }
    void setState(bool on);
    void setFree(bool free);
    // Its lock follows from setFree.
    void setMarks(const ValueMarks& marks);
    // Neither on nor off: the slider stands in the middle without a word.
    void setUnknown(bool unknown);
    bool isUnknown() const { return unknown_; }
    const ValueMarks& marks() const { return marks_; }
    // Marks the switch that the definition editor is working on.
    void setBeingEdited(bool edited);
    bool isBeingEdited() const { return edited_; }
    bool state() const { return state_; }
    bool isFree() const { return free_; }
    // The part with the word, which lies on the position that holds.
    QRect slider() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    PanelWords words_;
    std::function<void()> touched_;
    std::function<void()> lockedTouched_;
    ValueMarks marks_;
    bool state_ = false;
    bool unknown_ = false;
    bool free_ = true;
    bool down_ = false;
    bool edited_ = false;
};

} // namespace servopanel::panel

#pragma once

#include "panel/widgets/touch_key.h"

#include <QWidget>

#include <functional>

namespace servopanel::panel {

// A vertical scroll bar for fingers: big arrows, a slider to drag, and a page up or down beside the slider. Positions
// count from 1; the last one is where the end of what there is reaches the end of what is visible.
class ScrollView : public QWidget {
public:
    explicit ScrollView(QWidget* parent);

    void setHandler(std::function<void(int position)> moved) { moved_ = std::move(moved); }
    // None of these calls reports anything.
    void setRange(int visible, int total);
    void setPosition(int position);
    void setOn(bool on);

    int position() const { return position_; }
    int last() const;
    QRect slider() const;
    TouchKey& upKey() { return *up_; }
    TouchKey& downKey() { return *down_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    QRect track() const;
    void moveTo(int position); // by the operator
    void adaptKeys();
    int smallStep() const;

    std::function<void(int)> moved_;
    TouchKey* up_;
    TouchKey* down_;
    int visible_ = 1;
    int total_ = 1;
    int position_ = 1;
    int grip_ = -1; // where the finger holds the slider, pixels from its top; -1: it does not
    bool on_ = true;
};

} // namespace servopanel::panel

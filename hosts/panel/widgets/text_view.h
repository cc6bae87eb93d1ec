#pragma once

#include "panel/widgets/touch_view.h"
#include "panel/widgets/value_marks.h"

#include <QColor>
#include <QFont>
#include <QPen>
#include <QString>

#include <optional>

namespace servopanel::panel {

// A text on the screen: caption, value or input field.
class TextView : public TouchView {
public:
    enum class Frame {
        None, // text only, the background shows through
        Value, // a value that is only shown
        Field, // a value that can be touched to change it
    };

    using TouchView::TouchView;

    void setText(const QString& text);
    const QString& text() const { return text_; }
    void setLook(const QFont& font, const QColor& ink, Qt::Alignment alignment);
    void setFrame(Frame frame);
    // Nothing: the frame's own face, or none.
    void setBackground(std::optional<QColor> background);
    void setWrapping(bool wrapping);
    // Marks a field whose value waits to be written.
    void setChanged(bool changed);
    // Shows that the access level forbids to change it, beside what setLocked does.
    void setLockShown(bool shown);
    // Shows that the value is only the last known one; the digits keep their size and place.
    void setStale(bool stale);
    ValueMarks marks() const { return {changed_, lockShown_, stale_}; }
    // Marks the field that the input mask is working on.
    void setBeingEdited(bool edited);

    // Pixels that the text takes with this font, without frame.
    QSize textSize() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor face() const;
    QPen border() const;
    void paintText(QPainter& painter, const QRect& inside) const;

    QString text_;
    QFont font_;
    QColor ink_;
    Qt::Alignment alignment_ = Qt::AlignLeft | Qt::AlignVCenter;
    std::optional<QColor> background_;
    Frame frame_ = Frame::None;
    bool wrapping_ = false;
    bool edited_ = false;
    bool changed_ = false;
    bool lockShown_ = false;
    bool stale_ = false;
};

} // namespace servopanel::panel

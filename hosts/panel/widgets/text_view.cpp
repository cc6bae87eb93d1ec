#include "panel/widgets/text_view.h"

#include "panel/look/colours.h"
#include "panel/look/fonts.h"

#include <QPainter>

namespace servopanel::panel {

namespace {
constexpr int framePadding = 6; // between frame and text, pixels
}

void TextView::setText(const QString& text)
{
    if (text_ == text) return;
    text_ = text;
    update();
}

void TextView::setLook(const QFont& font, const QColor& ink, Qt::Alignment alignment)
{
    if (font_ == font && ink_ == ink && alignment_ == alignment) return;
    font_ = font;
    ink_ = ink;
    alignment_ = alignment;
    update();
}

void TextView::setFrame(Frame frame)
{
    frame_ = frame;
    update();
}

void TextView::setBackground(std::optional<QColor> background)
{
    if (background_ == background) return;
    background_ = background;
    update();
}

void TextView::setWrapping(bool wrapping)
{
    wrapping_ = wrapping;
    update();
}

void TextView::setChanged(bool changed)
{
    if (changed_ == changed) return;
    changed_ = changed;
    update();
}

void TextView::setLockShown(bool shown)
{
    if (lockShown_ == shown) return;
    lockShown_ = shown;
    update();
}

void TextView::setStale(bool stale)
{
    if (stale_ == stale) return;
    stale_ = stale;
    update();
}

void TextView::setBeingEdited(bool edited)
{
    if (edited_ == edited) return;
    edited_ = edited;
    update();
}

QSize TextView::textSize() const
{
    const QFontMetrics metrics{font_};
    return {metrics.horizontalAdvance(text_) + 1, metrics.height()};
}

QColor TextView::face() const
{
    if (background_) return *background_;
    if (frame_ == Frame::Value) return colours::value;
    return isLocked() && !edited_ ? colours::lockedField : colours::field;
}

QPen TextView::border() const
{
    if (edited_) return QPen{colours::accent, 3};
    if (changed_) return QPen{colours::accept, 3};
    return QPen{frame_ == Frame::Field && !isLocked() ? colours::border : colours::faintBorder, 1};
}

void TextView::paintEvent(QPaintEvent*)
{
    QPainter painter{this};
    QRect inside = rect();
    if (frame_ == Frame::None) {
        if (background_) painter.fillRect(inside, *background_);
    } else {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(border());
        const double line = border().widthF();
        painter.setBrush(face());
        painter.drawRoundedRect(QRectF{inside}.adjusted(line / 2, line / 2, -line / 2, -line / 2), 3, 3);
        painter.setRenderHint(QPainter::Antialiasing, false);
        const int padding = std::min(framePadding, inside.width() / 8);
        inside.adjust(padding, 1, -padding, -1);
    }
    if (stale_) drawHatching(painter, rect());
    if (!text_.isEmpty()) paintText(painter, inside);
    if (frame_ != Frame::None || stale_) drawMarks(painter, rect(), marks());
}

void TextView::paintText(QPainter& painter, const QRect& inside) const
{
    painter.setPen(stale_ ? staleInk(ink_) : ink_);
    QFont font = font_;
    if (changed_) font.setBold(true);
    if (wrapping_) {
        painter.setFont(font);
        painter.drawText(inside, static_cast<int>(alignment_) | Qt::TextWordWrap, text_);
        return;
    }
    drawFitted(painter, inside, static_cast<int>(alignment_), font, text_);
}

} // namespace servopanel::panel

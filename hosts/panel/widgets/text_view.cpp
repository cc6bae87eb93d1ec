#include "panel/widgets/text_view.h"

#include "panel/look/colours.h"
#include "panel/look/contrast.h"
#include "panel/look/language_look.h"
#include "panel/look/reading_order.h"

#include <QPaintEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace servopanel::panel {

namespace {
constexpr int framePadding = 6; // between frame and text, pixels

// A sign that lies on a view stands at its left end and is hidden where the text needs the room.
QRegion signsBeside(const QWidget& view, Qt::Alignment text)
{
    const Qt::Alignment side = QStyle::visualAlignment(view.layoutDirection(), text);
    const bool isClear = (side & (Qt::AlignRight | Qt::AlignHCenter)) != 0;
    return isClear ? view.childrenRegion() : QRegion{};
}

} // namespace

void TextView::setText(const QString& text)
{
    if (text_ == text) return;
    const bool stoodWithin = standsWithinFrame();
    text_ = text;
    // Drawing the frame takes far longer than the digits of a value, which change ten times a second.
    if (stoodWithin && standsWithinFrame())
        update(QRegion{withinFrame()} - signsBeside(*this, alignment_));
    else
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

void TextView::setState(ValueState state)
{
    if (state_ == state) return;
    state_ = state;
    update();
}

const QString& TextView::shownText() const
{
    static const QString nothing = QStringLiteral("–");
    return isUnknown() ? nothing : text_;
}

bool TextView::isStale() const
{
    return state_ != ValueState::Fresh && (frame_ != Frame::None || !shownText().isEmpty());
}

void TextView::setBeingEdited(bool edited)
{
    if (edited_ == edited) return;
    edited_ = edited;
    update();
}

QSize TextView::textSize() const
{
    const bool digits = languageLook().arabicIndicDigits;
    const QString& text = shownText();
    if (!size_.isNull() && text == sizedText_ && font_ == sizedFont_ && digits == sizedDigits_) return size_;
    const QFontMetrics metrics{font_};
    size_ = {metrics.horizontalAdvance(forDrawing(text, runsRightToLeft(text))) + 1, metrics.height()};
    sizedText_ = text;
    sizedFont_ = font_;
    sizedDigits_ = digits;
    return size_;
}

QRect TextView::ink() const
{
    const QString& line = fit().lines.front();
    return QFontMetrics{fit().font}.tightBoundingRect(forDrawing(line, runsRightToLeft(line)));
}

int TextView::inkTop() const
{
    const QFontMetrics metrics{fit().font};
    return inside().top() + (inside().height() - metrics.height()) / 2 + metrics.ascent() + ink().top();
}

int TextView::inkBottom() const { return inkTop() + ink().height() - 1; }

int TextView::inkHeight() const
{
    if (frame_ != Frame::None || wrapping_ || shownText().isEmpty()) return 0;
    const QFontMetrics metrics{fit().font};
    // Above and below the middle of the line, which stands in the middle of the view.
    const int middle = (metrics.descent() - metrics.ascent()) / 2;
    return 2 * (std::max(middle - ink().top(), ink().bottom() + 1 - middle) + 1);
}

void TextView::setMostPixels(int pixels)
{
    if (mostPixels_ == pixels) return;
    mostPixels_ = pixels;
    update();
}

QRect TextView::inside() const
{
    if (frame_ == Frame::None) return rect();
    const int padding = std::min(framePadding, width() / 8);
    return rect().adjusted(padding, 1, -padding, -1);
}

QRect TextView::withinFrame() const
{
    constexpr int corner = 4; // pixels
    return rect().adjusted(corner, 1, -corner, -1);
}

// Whether the text touches neither the frame nor the signs of a state. Of letters outside of ASCII nobody knows how far
// they reach, they may come from another font.
bool TextView::standsWithinFrame() const
{
    const bool isPlain = frame_ != Frame::None && !wrapping_ && !edited_ && marks() == ValueMarks{};
    if (!isPlain || !isVisible() || inside().left() < withinFrame().left()) return false;
    const auto isAscii = [](QChar letter) { return letter.unicode() < 0x80; };
    return std::all_of(text_.begin(), text_.end(), isAscii)
        && QFontMetrics{fit().font}.height() <= withinFrame().height();
}

// Letters such as "r" reach over their width; without a frame the widget's right edge would cut them. In pixels, as far
// as there is room.
int TextView::overhang() const
{
    constexpr int most = 2;
    const int flags = drawingFlags(alignment_, layoutDirection(), false);
    if (frame_ != Frame::None || wrapping_ || (flags & Qt::AlignRight) == 0) return 0;
    const QString& line = fit().lines.front();
    const int taken = QFontMetrics{fit().font}.horizontalAdvance(forDrawing(line, runsRightToLeft(line)));
    return std::clamp(width() - taken, 0, most);
}

const TextFit& TextView::fit() const
{
    QFont font = font_;
    if (changed_ || isUnknown()) font.setBold(true);
    if (mostPixels_ != 0) font.setPixelSize(std::min(font.pixelSize(), mostPixels_));
    const QSize size = inside().size();
    const bool digits = languageLook().arabicIndicDigits;
    const QString& text = shownText();
    const bool isFitted = text == fittedText_ && font == fittedFont_ && size == fittedSize_
        && wrapping_ == fittedWrapping_ && digits == fittedDigits_;
    if (isFitted) return fit_;
    fit_ = wrapping_ ? TextFit::wrapped(text, font, size, leastTextPixels)
                     : TextFit::oneLine(text, font, size, leastTextPixels);
    fittedText_ = text;
    fittedFont_ = font;
    fittedSize_ = size;
    fittedWrapping_ = wrapping_;
    fittedDigits_ = digits;
    return fit_;
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
    if (isStale() && !hasRoomForSigns(rect())) return QPen{colours::ink, 1.5, Qt::DashLine};
    return QPen{frame_ == Frame::Field && !isLocked() ? colours::border : colours::faintBorder, 1};
}

void TextView::paintEvent(QPaintEvent* event)
{
    QPainter painter{this};
    // On a scaled screen the place of a pixel is not known to the pixel.
    const bool isScaled = painter.deviceTransform().type() > QTransform::TxTranslate;
    if (frame_ == Frame::None) {
        if (background_) painter.fillRect(rect(), *background_);
    } else if (!isScaled && withinFrame().contains(event->rect())) {
        painter.fillRect(event->rect(), face());
    } else {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(border());
        const double line = border().widthF();
        painter.setBrush(face());
        painter.drawRoundedRect(QRectF{rect()}.adjusted(line / 2, line / 2, -line / 2, -line / 2), 3, 3);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
    if (isStale()) drawHatching(painter, rect());
    if (!shownText().isEmpty()) {
        painter.setPen(shownInk());
        fit().draw(painter, inside().adjusted(0, 0, -overhang(), 0), alignment_);
    }
    if (frame_ != Frame::None || isStale()) drawMarks(painter, rect(), marks());
}

// The ink of a text that can be read on what it stands on.
QColor TextView::shownInk() const
{
    // "–" is no old value that would have to step back, and it is thin among the lines of the hatching.
    const QColor ink = isStale() && !isUnknown() ? staleInk(ink_) : ink_;
    const bool bare = frame_ == Frame::None && !background_;
    // A light text without a face of its own stands on something dark in a picture.
    const bool onPicture = bare && ink.lightness() > colours::background.lightness();
    return onPicture ? ink : readable(ink, bare ? colours::background : face());
}

} // namespace servopanel::panel

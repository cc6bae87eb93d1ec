#include "panel/widgets/touch_key.h"

#include "panel/look/colours.h"
#include "panel/look/contrast.h"
#include "panel/look/fonts.h"
#include "panel/look/mirroring.h"
#include "panel/look/text_fit.h"
#include "panel/widgets/value_marks.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>

namespace servopanel::panel {

namespace {
constexpr int repeatAfterMs = 450;
constexpr int repeatEveryMs = 120;
constexpr int pressShownMs = 150;
constexpr int framePixels = 3; // of a key that stands for something active
constexpr double offOpacity = 0.35;

// On a narrow key letters become narrower before they become lower.
QFont narrowed(QFont font, const QString& text, int width)
{
    constexpr int narrowest = 76; // per cent
    constexpr int step = 4;
    for (int stretch = QFont::Unstretched; stretch >= narrowest; stretch -= step) {
        font.setStretch(stretch);
        if (drawnWidth(font, text) <= width) break;
    }
    return font;
}

// A digit, an arrow and the like: the same on the keys of every language.
bool isSingleSign(const QString& text)
{
    constexpr QChar firstBeyondEurope{0x0590};
    return text.size() == 1 && (text.front() < firstBeyondEurope || !text.front().isLetter());
}
} // namespace

TouchKey::TouchKey(QWidget* parent)
    : QWidget{parent}
{
    connect(&repeat_, &QTimer::timeout, this, [this] {
        repeat_.setInterval(repeatEveryMs);
        if (!down_) return;
        ++repeats_;
        act();
    });
}

void TouchKey::setText(const QString& text)
{
    if (text_ == text) return;
    text_ = text;
    update();
}

void TouchKey::setValue(const QString& value)
{
    if (value_ == value) return;
    value_ = value;
    update();
}

void TouchKey::setCorner(const QString& corner)
{
    corner_ = corner;
    update();
}

void TouchKey::setPicture(const QImage& picture)
{
    picture_.set(picture);
    update();
}

void TouchKey::setRole(Role role)
{
    role_ = role;
    update();
}

void TouchKey::setHighlight(std::optional<QColor> colour)
{
    if (highlight_ == colour) return;
    highlight_ = colour;
    update();
}

void TouchKey::setOn(bool on)
{
    if (on_ == on) return;
    on_ = on;
    if (!on) letGo();
    update();
}

// A key that was off or hidden meanwhile does not act when the finger is lifted.
void TouchKey::letGo()
{
    repeat_.stop();
    held_ = false;
    down_ = false;
}

void TouchKey::setChosen(bool chosen)
{
    if (chosen_ == chosen) return;
    chosen_ = chosen;
    update();
}

void TouchKey::act()
{
    if (!on_ || !action_) return;
    const auto action = action_;
    action();
}

void TouchKey::showPress()
{
    if (!on_ || held_) return;
    down_ = true;
    update();
    QTimer::singleShot(pressShownMs, this, [this] {
        if (held_) return;
        down_ = false;
        update();
    });
}

void TouchKey::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    if (!on_ || event->button() != Qt::LeftButton) return;
    held_ = true;
    down_ = true;
    update();
    if (!repeating_) return;
    repeats_ = 0;
    repeat_.start(repeatAfterMs);
    act();
}

void TouchKey::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
    const bool inside = held_ && on_ && rect().contains(event->position().toPoint());
    if (inside == down_) return;
    down_ = inside;
    update();
}

void TouchKey::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() != Qt::LeftButton) return;
    const bool chosen = held_ && down_ && on_ && rect().contains(event->position().toPoint());
    letGo();
    update();
    if (chosen && !repeating_) act();
}

void TouchKey::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

void TouchKey::hideEvent(QHideEvent* event)
{
    letGo();
    QWidget::hideEvent(event);
}

void TouchKey::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) update();
}

void TouchKey::setSign(bool sign)
{
    sign_ = sign;
    update();
}

void TouchKey::setHeldBack(bool heldBack)
{
    if (heldBack_ == heldBack) return;
    heldBack_ = heldBack;
    update();
}

QColor TouchKey::face() const
{
    if (isHeldBack()) return down_ ? colours::keyOff.darker(110) : colours::keyOff;
    if (!on_) return role_ == Role::Dark ? colours::bar : colours::keyOff;
    QColor face = colours::key;
    if (role_ == Role::Accept) face = colours::accept;
    if (role_ == Role::Refuse) face = mix(colours::key, colours::refuse, 0.16);
    if (role_ == Role::Alarm) face = colours::refuse;
    if (role_ == Role::Dark) face = mix(colours::bar, colours::barInk, 0.14);
    if (chosen_) face = colours::accent;
    if (highlight_) face = mix(*highlight_, colours::key, 0.35);
    if (down_) return role_ == Role::Plain && !highlight_ ? colours::keyPressed : face.darker(125);
    return face;
}

QColor TouchKey::ink() const
{
    if (isSign()) return colours::ink;
    if (isHeldBack()) return colours::lockedInk;
    if (!on_) return role_ == Role::Dark ? colours::faintInk : colours::lockedInk;
    if (chosen_ || role_ == Role::Accept || role_ == Role::Dark || role_ == Role::Alarm)
        return colours::barInk;
    return colours::ink;
}

void TouchKey::paintValue(QPainter& painter, const QRect& place, int pixels) const
{
    const QRect line = place.adjusted(6, 0, -6, 0);
    const int half = line.width() / 2;
    const QRect name = mirroredIn(*this, {line.left(), line.top(), half - 4, line.height()});
    const QRect value =
        mirroredIn(*this, {line.left() + half, line.top(), line.width() - half, line.height()});
    drawFitted(painter, name, static_cast<int>(leading(*this) | Qt::AlignVCenter), panelFont(pixels), text_);
    drawFitted(painter, value, static_cast<int>(trailing(*this) | Qt::AlignVCenter), valueFont(pixels, true),
        value_);
}

void TouchKey::paintEvent(QPaintEvent*)
{
    QPainter painter{this};
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (blankWhileOff_ && !on_ && picture().isNull()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(mix(colours::bar, colours::keyOff, 0.18));
        painter.drawRoundedRect(QRectF{rect()}.adjusted(1, 1, -1, -1), 4, 4);
        return;
    }
    const QRectF frame = QRectF{rect()}.adjusted(1, 1, -1, -1);
    const QColor filling = face();
    QLinearGradient shade{frame.topLeft(), frame.bottomLeft()};
    const bool isFlat = down_ || !on_ || isHeldBack();
    shade.setColorAt(0, isFlat ? filling : filling.lighter(104));
    shade.setColorAt(1, isFlat ? filling : filling.darker(107));
    painter.setBrush(shade);
    painter.setPen(isSign() ? QPen{Qt::NoPen} : QPen{on_ ? colours::border : colours::faintBorder, 1});
    painter.drawRoundedRect(frame, 4, 4);

    const int shift = down_ ? 1 : 0;
    const int edge = isFramed() ? framePixels : 0;
    const QRect inside = rect().adjusted(4 + edge, 3 + edge, -4 - edge, -3 - edge).translated(shift, shift);
    const bool isFaded = isHeldBack() || (!on_ && !isSign());
    if (isFaded && !picture().isNull()) painter.setOpacity(offOpacity);

    const int corner = corner_.isEmpty() ? 0 : scaled(0.16, height(), 9, 14);
    const int textPixels = textPixels_ != 0 ? textPixels_ : scaled(0.42, height(), 9, 26);
    QRect textPlace = inside;
    if (!picture().isNull()) {
        QRect picturePlace = inside;
        if (corner != 0) picturePlace.setTop(inside.top() + corner * 2 / 3);
        if (!text_.isEmpty()) {
            const int line =
                std::max(scaled(0.2, height(), 11, 19), QFontMetrics{panelFont(leastTextPixels)}.height());
            picturePlace.setBottom(inside.bottom() - line);
            textPlace =
                QRect{inside.left(), inside.bottom() - line, inside.width(), line}.adjusted(-2, 0, 2, 0);
        }
        picture_.draw(painter, picturePlace);
    }
    painter.setOpacity(1);
    painter.setPen(ink());
    if (!value_.isEmpty()) {
        paintValue(painter, textPlace, textPixels);
    } else if (!text_.isEmpty()) {
        const bool bold = picture().isNull();
        const int pixels =
            bold ? textPixels : std::min(textPixels, std::max(leastTextPixels, textPlace.height() * 3 / 4));
        const QFont font = isSingleSign(text_) ? valueFont(pixels, bold) : panelFont(pixels, bold);
        drawFitted(painter, textPlace, Qt::AlignCenter, narrowed(font, text_, textPlace.width()), text_);
    }
    if (corner != 0) {
        painter.setFont(panelFont(corner));
        painter.setPen(on_ ? readable(colours::faintInk, face()) : colours::lockedInk);
        painter.drawText(
            inside.adjusted(1, 0, -1, 0), static_cast<int>(leading(*this) | Qt::AlignTop), corner_);
    }
    if (isHeldBack()) paintWarning(painter, inside);
    if (isFramed()) {
        constexpr double half = framePixels / 2.0;
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen{colours::ink, framePixels});
        painter.drawRoundedRect(frame.adjusted(half, half, -half, -half), 3, 3);
    }
}

// Opposite to its name, large enough to be told from it.
void TouchKey::paintWarning(QPainter& painter, const QRect& inside) const
{
    const int side = scaled(0.3, height(), 14, 28);
    drawWarning(
        painter, mirroredIn(*this, {inside.right() + 1 - side, inside.top(), side, side}), colours::ink);
}

} // namespace servopanel::panel

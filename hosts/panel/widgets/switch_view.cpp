#include "panel/widgets/switch_view.h"

#include "panel/look/colours.h"
#include "panel/look/fonts.h"

#include <QMouseEvent>
#include <QPainter>

namespace servopanel::panel {

SwitchView::SwitchView(QWidget* parent, PanelWords words)
    : QWidget{parent}
    , words_{std::move(words)}
{
}

void SwitchView::setState(bool on)
{
    if (state_ == on) return;
    state_ = on;
    update();
}

void SwitchView::setFree(bool free)
{
    if (free_ == free) return;
    free_ = free;
    down_ = false;
    update();
}

void SwitchView::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    if (!free_ || event->button() != Qt::LeftButton) return;
    down_ = true;
    update();
}

void SwitchView::mouseMoveEvent(QMouseEvent* event) { event->accept(); }

void SwitchView::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (!down_) return;
    down_ = false;
    update();
    if (!free_ || !touched_ || !rect().contains(event->position().toPoint())) return;
    const auto touched = touched_;
    touched();
}

void SwitchView::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

void SwitchView::paintEvent(QPaintEvent*)
{
    QPainter painter{this};
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF whole = QRectF{rect()}.adjusted(1, 1, -1, -1);
    const double half = whole.width() / 2;

    // The track shows both positions; the slider lies on the one that holds.
    QColor track =
        state_ ? mix(colours::accept, colours::field, 0.25) : mix(colours::border, colours::field, 0.45);
    if (!free_) track = mix(track, colours::keyOff, 0.6);
    painter.setPen(QPen{free_ ? colours::border : colours::faintBorder, 1});
    painter.setBrush(track);
    painter.drawRoundedRect(whole, 4, 4);

    const QRectF slider{state_ ? whole.left() + half : whole.left(), whole.top(), half, whole.height()};
    painter.setBrush(!free_ ? colours::keyOff : down_ ? colours::keyPressed : colours::key);
    painter.drawRoundedRect(slider.adjusted(2, 2, -2, -2), 3, 3);

    const int pixels = scaled(0.42, height(), 9, 18);
    const auto word = [&](const QRectF& place, PanelText text, const QColor& ink) {
        const QString shown = words_(text);
        painter.setFont(fitted(panelFont(pixels, true), shown, static_cast<int>(place.width()) - 6));
        painter.setPen(ink);
        painter.drawText(place, Qt::AlignCenter, shown);
    };
    word(slider, state_ ? PanelText::On : PanelText::Off, free_ ? colours::ink : colours::lockedInk);
}

} // namespace servopanel::panel

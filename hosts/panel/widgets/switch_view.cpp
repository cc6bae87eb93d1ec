#include "panel/widgets/switch_view.h"

#include "panel/look/colours.h"
#include "panel/look/contrast.h"
#include "panel/look/fonts.h"
#include "panel/look/mirroring.h"

#include <QEvent>
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
    marks_.locked = !free;
    update();
}

void SwitchView::setMarks(const ValueMarks& marks)
{
    const ValueMarks own{marks.changed, !free_, marks.stale};
    if (own == marks_) return;
    marks_ = own;
    update();
}

void SwitchView::setBeingEdited(bool edited)
{
    if (edited_ == edited) return;
    edited_ = edited;
    update();
}

void SwitchView::setUnknown(bool unknown)
{
    if (unknown_ == unknown) return;
    unknown_ = unknown;
    update();
}

void SwitchView::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    if (!free_ && lockedTouched_) lockedTouched_();
    if (!free_ || event->button() != Qt::LeftButton) return;
    down_ = true;
    update();
}

void SwitchView::mouseMoveEvent(QMouseEvent* event) { event->accept(); }

void SwitchView::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    // Another button beside the one that holds the switch.
    if (!down_ || event->button() != Qt::LeftButton) return;
    down_ = false;
    update();
    if (!free_ || !touched_ || !rect().contains(event->position().toPoint())) return;
    const auto touched = touched_;
    touched();
}

void SwitchView::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

void SwitchView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) update();
}

QRect SwitchView::slider() const
{
    const int half = width() / 2;
    if (unknown_) return QRect{width() / 4, 0, half, height()}.adjusted(3, 3, -3, -3);
    return mirroredIn(*this, {state_ ? width() - half : 0, 0, half, height()}).adjusted(3, 3, -3, -3);
}

void SwitchView::paintEvent(QPaintEvent*)
{
    QPainter painter{this};
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF whole = QRectF{rect()}.adjusted(1, 1, -1, -1);

    // The track shows both positions; the slider lies on the one that holds.
    QColor track = state_ && !unknown_ ? mix(colours::accept, colours::field, 0.25)
                                       : mix(colours::border, colours::field, 0.45);
    if (!free_ || marks_.stale) track = mix(track, colours::keyOff, 0.6);
    QPen edge{free_ ? colours::border : colours::faintBorder, 1};
    if (marks_.changed) edge = QPen{colours::accept, 3};
    if (edited_) edge = QPen{colours::accent, 3};
    painter.setPen(edge);
    painter.setBrush(track);
    painter.drawRoundedRect(whole, 4, 4);
    if (marks_.stale) drawHatching(painter, rect());

    painter.setPen(QPen{free_ ? colours::border : colours::faintBorder, 1});
    painter.setBrush(!free_ ? colours::keyOff : down_ ? colours::keyPressed : colours::key);
    painter.drawRoundedRect(QRectF{slider()}, 3, 3);

    const QColor ink = free_ ? colours::ink : readable(colours::lockedInk, colours::keyOff);
    painter.setPen(marks_.stale ? staleInk(ink) : ink);
    drawFitted(painter, slider().adjusted(3, 0, -3, 0), Qt::AlignCenter,
        panelFont(scaled(0.42, height(), 9, 18), true),
        unknown_ ? QStringLiteral("–") : words_(state_ ? PanelText::On : PanelText::Off));
    // Signs where the slider leaves room.
    drawMarks(painter, rect(), {marks_.changed, false, false});
    const bool isSliderLeft = slider().center().x() < width() / 2;
    const QRect half{isSliderLeft ? width() / 2 : 0, 0, width() - width() / 2, height()};
    drawMarks(painter, unknown_ ? rect() : half.adjusted(6, 0, 0, 0), {false, marks_.locked, marks_.stale});
}

} // namespace servopanel::panel

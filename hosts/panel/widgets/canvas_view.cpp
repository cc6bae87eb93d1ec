#include "panel/widgets/canvas_view.h"

#include <QPainter>
#include <QResizeEvent>

namespace servopanel::panel {

CanvasView::CanvasView(QWidget* parent)
    : TouchView{parent}
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CanvasView::paintEvent(QPaintEvent*)
{
    QPainter painter{this};
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(0, 0, canvas_.image());
}

void CanvasView::resizeEvent(QResizeEvent* event)
{
    canvas_.resize(event->size());
    TouchView::resizeEvent(event);
}

} // namespace servopanel::panel

#include "panel/widgets/canvas_view.h"

#include <QPaintEvent>
#include <QPainter>
#include <QResizeEvent>

namespace servopanel::panel {

CanvasView::CanvasView(QWidget* parent)
    : TouchView{parent}
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CanvasView::paintEvent(QPaintEvent* event)
{
    QPainter painter{this};
    if (painter.deviceTransform().type() > QTransform::TxTranslate) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(0, 0, canvas_.image());
        return;
    }
    // Qt takes several threads for a large picture, even where little of it is to be painted.
    for (const QRect& part : event->region())
        painter.drawImage(part.topLeft(), canvas_.image(), part);
}

void CanvasView::resizeEvent(QResizeEvent* event)
{
    canvas_.resize(event->size());
    TouchView::resizeEvent(event);
}

} // namespace servopanel::panel

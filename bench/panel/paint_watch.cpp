#include "paint_watch.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QPaintEvent>

namespace servopanel::bench {

PaintWatch::PaintWatch() { QCoreApplication::instance()->installEventFilter(this); }

void PaintWatch::startAnew()
{
    widgets_.clear();
    paintings_ = 0;
    pixels_ = 0;
}

bool PaintWatch::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Paint || !watched->isWidgetType()) return false;
    widgets_.insert(watched);
    ++paintings_;
    for (const QRect& part : static_cast<QPaintEvent*>(event)->region())
        pixels_ += std::int64_t{part.width()} * part.height();
    return false;
}

void workUntilIdle()
{
    while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) { }
}

} // namespace servopanel::bench

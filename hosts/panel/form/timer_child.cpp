#include "panel/form/timer_child.h"

#include "basic/conversions.h"

namespace servopanel::panel {

TimerChild::TimerChild(QWidget* parent, Services& services, EventGate& gate)
    : Child{"Timer", *new QWidget{parent}, services}
    , gate_{gate}
{
    timer_.setParent(&view());
    QObject::connect(&timer_, &QTimer::timeout, &view(), [this] {
        if (!gate_.isBusy() && !gate_.isClosed()) raise("Timer");
    });
    addProperty(
        platform::named("Interval"), [this] { return basic::Variant{interval_}; },
        [this](const basic::Variant& value) {
            interval_ = basic::toInt32(value);
            adapt();
        });
}

void TimerChild::adapt()
{
    if (enabled() && interval_ > 0)
        timer_.start(interval_);
    else
        timer_.stop();
}

} // namespace servopanel::panel

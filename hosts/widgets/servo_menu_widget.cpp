#include "widgets/servo_menu_widget.h"

#include "basic/conversions.h"
#include "panel/runtime/panel.h"
#include "platform/ids.h"
#include "widgets/below_header.h"

#include <QPointer>

namespace servopanel {

QSize ServoMenuWidget::sizeHint() const { return sizeBelowHeader; }

void ServoMenuWidget::prepare(panel::Panel& panel) { panel.setShownServo(0); }

void ServoMenuWidget::opened(panel::ControlHost& servo)
{
    const QPointer<ServoMenuWidget> self{this};
    servo.setOverhears([self](std::string_view control, std::string_view event, platform::Args args) {
        if (control != platform::classes::ServoMenu || event != "ServoBildAufrufen") return false;
        const int place = basic::toInt16(args[0]);
        if (self) self->later([self, place] { emit self->servoChosen(place); });
        return true;
    });
    // A project without menu begins with a page.
    if (panel()->shownPart() == nullptr || panel()->shownPart()->className() != platform::classes::ServoMenu)
        servo.raiseInside(platform::classes::ServoMain, "MenuAnzeigen", {});
}

QRect ServoMenuWidget::area(panel::ControlHost& servo, const QRect& whole) const
{
    return belowHeader(servo, whole);
}

} // namespace servopanel

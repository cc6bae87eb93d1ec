#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

// Keeps the page current, also while the mask is open: marked fields are left alone.
void ServoMain::Timer_Timer() { WerteLesen(true); }

} // namespace servopanel::servo_page

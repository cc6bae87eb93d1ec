#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

// In the font that the display has now, on this panel.
bool ServoMain::breiterAlsErlaubt(platform::ChildId anzeige, std::string_view text)
{
    return platform_.form.textWidth(anzeige, text) > zustand_.aufbau.TextBreite;
}

} // namespace servopanel::servo_page

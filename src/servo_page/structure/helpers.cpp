#include "display/namen.h"
#include "platform/facades/sprachtext.h"
#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

std::string ServoMain::servoVariable(std::string_view familie, std::string_view zusatz)
{
    return display::servoVariable(gemeinsam(), familie, servoNummer(), zusatz);
}

std::string ServoMain::datenbankName()
{
    return zustand_.aufbau.Bibliothek + "\\" + zustand_.aufbau.Bibliothek + ".mdb";
}

std::string ServoMain::textSchlüssel(std::int16_t textNummer)
{
    return display::textSchlüssel(gemeinsam(), zustand_.aufbau.Bibliothek, servoNummer(), textNummer);
}

std::string ServoMain::sprachtext(std::int16_t textNummer)
{
    return platform::Sprachtext{kind("VWLanguage")}.Text(textSchlüssel(textNummer));
}

} // namespace servopanel::servo_page

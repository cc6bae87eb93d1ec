#include "servo_page/servo_main.h"

#include "basic/conversions.h"
#include "basic/entry_guard.h"
#include "platform/event_table.h"
#include "platform/property_table.h"
#include "servo_page/structure/form.h"

#include <span>

namespace servopanel::servo_page {

using platform::Args;
using platform::number;
using platform::twips;

ServoMain::ServoMain(config::Module module, const platform::ControlPlatform& platform)
    : module_{module}
    , platform_{platform}
{
}

// Building and showing are asked for through BildInit and BildShow.
void ServoMain::initialize() { }
void ServoMain::show() { }

void ServoMain::terminate()
{
    basic::guardEntry(fehler(), "Ma UserControl_Terminate", [this] { UserControl_Terminate(); });
}

platform::FormData ServoMain::form() const { return servoMainForm(); }

namespace {

using Property = platform::PropertyRow<ServoMain>;

constexpr Property eigenschaften[]{
    {platform::names::BildInit.name, "Ma BildInit Let", &ServoMain::BildInit, &ServoMain::BildInit},
    {platform::names::BildShow.name, "Ma BildShow Let", &ServoMain::BildShow, &ServoMain::BildShow},
    {platform::names::SpracheGeandert.name, "Ma Let SpracheGeandert", &ServoMain::SpracheGeandert, nullptr},
    // For the replay tool alone, see geaendertSetzen: reaches states that only a caller outside could leave.
    {"poke.modified", "Ma poke.modified", &ServoMain::geaendertSetzen, nullptr},
};

} // namespace

basic::Variant ServoMain::get(const platform::Member& member)
{
    return platform::getProperty(std::span<const Property>{eigenschaften}, *this, member);
}

void ServoMain::put(const platform::Member& member, const basic::Variant& value)
{
    platform::putProperty(std::span<const Property>{eigenschaften}, *this, fehler(), member, value);
}

void ServoMain::geaendertSetzen(std::int16_t geaendert) { zustand_.bearbeitung.Geaendert = geaendert; }

namespace {

using Row = platform::EventRow<ServoMain>;

void berührt(ServoMain& seite, std::int16_t index, Args args)
{
    seite.Sollwert_MouseDown(index, number(args, 0), number(args, 1), twips(args, 2), twips(args, 3));
}
// A switch tells no place: its touches arrive as if made with the left button in its corner.
void geschaltet(ServoMain& seite, std::int16_t index, Args)
{
    seite.Sollwert_MouseDown(index, 1, 1, 1.0F, 1.0F);
}

constexpr Row ereignisse[]{
    {"SollwertL", "MouseDown", "Ma SollwertL_MouseDown", &berührt},
    {"SollwertR", "MouseDown", "Ma SollwertR_MouseDown", &berührt},
    {"ZeichnungL", "MouseDown", "Ma ZeichnungL_MouseDown", &berührt},
    {"ZeichnungR", "MouseDown", "Ma ZeichnungR_MouseDown", &berührt},
    {"SchalterL", "SchalterGedrückt", "Ma SchalterL_SchalterGedrückt", &geschaltet},
    {"SchalterR", "SchalterGedrückt", "Ma SchalterR_SchalterGedrückt", &geschaltet},
    {"Eingabemaske", "EingabeAenderung", "Ma Eingabemaske_EingabeAenderung",
        [](ServoMain& seite, std::int16_t, Args) { seite.Eingabemaske_EingabeAenderung(); }},
    {"Eingabemaske", "Eingabefertig", "Ma Eingabemaske_Eingabefertig",
        [](ServoMain& seite, std::int16_t, Args) { seite.Eingabemaske_Eingabefertig(); }},
    {"IniEingabe", "EingabeFertig", "Ma IniEingabe_EingabeFertig",
        [](ServoMain& seite, std::int16_t, Args) { seite.IniEingabe_EingabeFertig(); }},
    {"IniEingabe", "LostFocus", "Ma IniEingabe_LostFocus",
        [](ServoMain& seite, std::int16_t, Args) { seite.IniEingabe_LostFocus(); }},
    {"Fußzeile", "TasteClick", "Ma Fußzeile_TasteClick",
        [](ServoMain& seite, std::int16_t, Args args) { seite.Fußzeile_TasteClick(number(args, 0)); }},
    {"ScrollBar", "NeuePos", "Ma ScrollBar_NeuePos",
        [](ServoMain& seite, std::int16_t, Args args) { seite.ScrollBar_NeuePos(number(args, 0)); }},
    {"Timer", "Timer", "Ma Timer_Timer", [](ServoMain& seite, std::int16_t, Args) { seite.Timer_Timer(); }},
};

} // namespace

bool ServoMain::deliver(platform::ChildId child, std::string_view event, Args args)
{
    return platform::deliverEvent(std::span<const Row>{ereignisse}, *this, fehler(), child, event, args);
}

} // namespace servopanel::servo_page

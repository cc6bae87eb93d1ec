#include "servo_page/servo_main.h"

#include "basic/conversions.h"
#include "basic/entry_guard.h"
#include "basic/text.h"
#include "platform/event_table.h"
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

struct Eigenschaft {
    std::string_view name;
    std::string_view prozedur; // the name under which a failure of the call itself is reported
    void (ServoMain::*setzen)(std::int16_t);
    std::int16_t (ServoMain::*lesen)(); // nullptr: write only
};

constexpr Eigenschaft eigenschaften[]{
    {platform::names::BildInit.name, "Ma BildInit Let", &ServoMain::BildInit, &ServoMain::BildInit},
    {platform::names::BildShow.name, "Ma BildShow Let", &ServoMain::BildShow, &ServoMain::BildShow},
    {platform::names::SpracheGeandert.name, "Ma Let SpracheGeandert", &ServoMain::SpracheGeandert, nullptr},
    // For replay scenarios: reaches states that only a caller outside could leave.
    {"poke.modified", "Ma poke.modified", &ServoMain::geaendertSetzen, nullptr},
};

// Property names compare without regard to case.
const Eigenschaft& eigenschaft(const platform::Member& member)
{
    const std::string gesucht = basic::upperCase(member.name);
    for (const Eigenschaft& eine : eigenschaften)
        if (basic::upperCase(eine.name) == gesucht) return eine;
    basic::raise(basic::ErrorNumber::NoSuchMember);
}

} // namespace

basic::Variant ServoMain::get(const platform::Member& member)
{
    const Eigenschaft& gefragt = eigenschaft(member);
    if (!gefragt.lesen) basic::raise(basic::ErrorNumber::NoSuchMember);
    return (this->*gefragt.lesen)();
}

void ServoMain::put(const platform::Member& member, const basic::Variant& value)
{
    const Eigenschaft& gefragt = eigenschaft(member);
    basic::guardEntry(fehler(), gefragt.prozedur, [&] { (this->*gefragt.setzen)(basic::toInt16(value)); });
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
    {"SollwertL", "MouseDown", &berührt},
    {"SollwertR", "MouseDown", &berührt},
    {"ZeichnungL", "MouseDown", &berührt},
    {"ZeichnungR", "MouseDown", &berührt},
    {"SchalterL", "SchalterGedrückt", &geschaltet},
    {"SchalterR", "SchalterGedrückt", &geschaltet},
    {"Eingabemaske", "EingabeAenderung",
        [](ServoMain& seite, std::int16_t, Args) { seite.Eingabemaske_EingabeAenderung(); }},
    {"Eingabemaske", "Eingabefertig",
        [](ServoMain& seite, std::int16_t, Args) { seite.Eingabemaske_Eingabefertig(); }},
    {"IniEingabe", "EingabeFertig",
        [](ServoMain& seite, std::int16_t, Args) { seite.IniEingabe_EingabeFertig(); }},
    {"IniEingabe", "LostFocus", [](ServoMain& seite, std::int16_t, Args) { seite.IniEingabe_LostFocus(); }},
    {"Fußzeile", "TasteClick",
        [](ServoMain& seite, std::int16_t, Args args) { seite.Fußzeile_TasteClick(number(args, 0)); }},
    {"ScrollBar", "NeuePos",
        [](ServoMain& seite, std::int16_t, Args args) { seite.ScrollBar_NeuePos(number(args, 0)); }},
    {"Timer", "Timer", [](ServoMain& seite, std::int16_t, Args) { seite.Timer_Timer(); }},
};

} // namespace

bool ServoMain::deliver(platform::ChildId child, std::string_view event, Args args)
{
    const Row* row = platform::findEvent(std::span<const Row>{ereignisse}, child.name, event);
    if (!row) return false;
    basic::guardEntry(fehler(), event, [&] { row->handle(*this, child.index, args); });
    return true;
}

} // namespace servopanel::servo_page

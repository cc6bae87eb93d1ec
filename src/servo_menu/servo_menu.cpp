#include "servo_menu/servo_menu.h"

#include "basic/entry_guard.h"
#include "platform/event_table.h"
#include "platform/facades/scroll_bar.h"
#include "servo_menu/form.h"
#include "servo_menu/raster.h"

namespace servopanel::servo_menu {

using platform::Args;
using platform::number;
using platform::twips;

ServoMenu::ServoMenu(config::Module module, const platform::ControlPlatform& platform)
    : module_{module}
    , platform_{platform}
{
}

// Building and showing are asked for through BildInit and BildShow.
void ServoMenu::initialize() { }
void ServoMenu::show() { }

void ServoMenu::terminate()
{
    basic::guardEntry(fehler(), "Me UserControl_Terminate", [this] { UserControl_Terminate(); });
}

platform::FormData ServoMenu::form() const { return servoMenuForm(); }

basic::Variant ServoMenu::get(const platform::Member& member)
{
    if (member.name == platform::names::BildInit.name) return BildInit();
    if (member.name == platform::names::BildShow.name) return BildShow();
    basic::raise(basic::ErrorNumber::NoSuchMember);
}

void ServoMenu::put(const platform::Member& member, const basic::Variant& value)
{
    void (ServoMenu::*set)(std::int16_t) = nullptr;
    if (member.name == platform::names::BildInit.name) set = &ServoMenu::BildInit;
    if (member.name == platform::names::BildShow.name) set = &ServoMenu::BildShow;
    if (member.name == platform::names::SpracheGeandert.name) set = &ServoMenu::SpracheGeandert;
    if (!set) basic::raise(basic::ErrorNumber::NoSuchMember);
    const std::int16_t wert = basic::toInt16(value);
    basic::guardEntry(fehler(), member.name, [&] { (this->*set)(wert); });
}

namespace {

using Row = platform::EventRow<ServoMenu>;
using Zeiger = void (ServoMenu::*)(std::int16_t, std::int16_t, float, float);
using ZeigerFeld = void (ServoMenu::*)(std::int16_t, std::int16_t, std::int16_t, float, float);

template <Zeiger handler>
void fläche(ServoMenu& menu, std::int16_t, Args args)
{
    (menu.*handler)(number(args, 0), number(args, 1), twips(args, 2), twips(args, 3));
}
template <ZeigerFeld handler>
void feld(ServoMenu& menu, std::int16_t index, Args args)
{
    (menu.*handler)(index, number(args, 0), number(args, 1), twips(args, 2), twips(args, 3));
}

constexpr Row ereignisse[]{
    {"", "MouseDown", &fläche<&ServoMenu::UserControl_MouseDown>},
    {"", "MouseMove", &fläche<&ServoMenu::UserControl_MouseMove>},
    {"", "MouseUp", &fläche<&ServoMenu::UserControl_MouseUp>},
    {"Beschriftung", "MouseDown", &feld<&ServoMenu::Beschriftung_MouseDown>},
    {"Beschriftung", "MouseMove", &feld<&ServoMenu::Beschriftung_MouseMove>},
    {"Beschriftung", "MouseUp", &feld<&ServoMenu::Beschriftung_MouseUp>},
    {"BildIm", "MouseDown", &feld<&ServoMenu::BildIm_MouseDown>},
    {"BildIm", "MouseMove", &feld<&ServoMenu::BildIm_MouseMove>},
    {"BildIm", "MouseUp", &feld<&ServoMenu::BildIm_MouseUp>},
    {"ScrollBar", "NeuePos",
        [](ServoMenu& menu, std::int16_t, Args args) { menu.ScrollBar_NeuePos(number(args, 0)); }},
    {"Fußzeile", "TasteClick",
        [](ServoMenu& menu, std::int16_t, Args args) { menu.Fußzeile_TasteClick(number(args, 0)); }},
};

} // namespace

bool ServoMenu::deliver(platform::ChildId child, std::string_view event, Args args)
{
    const Row* row = platform::findEvent(std::span<const Row>{ereignisse}, child.name, event);
    if (!row) return false;
    basic::guardEntry(fehler(), event, [&] { row->handle(*this, child.index, args); });
    return true;
}

std::int16_t ServoMenu::listenPosition(std::int16_t taste)
{
    const std::int16_t position = platform::ScrollBar{kind("ScrollBar")}.Position();
    return basic::add16(basic::multiply16(basic::subtract16(position, 1), 2), taste);
}

float ServoMenu::tastenBreite(std::int16_t taste) const
{
    return spalteDerTaste(taste) == 0 ? zustand_.raster.TastenBreite : zustand_.raster.Maß3;
}

} // namespace servopanel::servo_menu

#include "servo_menu/servo_menu.h"

#include "basic/entry_guard.h"
#include "platform/event_table.h"
#include "platform/facades/scroll_bar.h"
#include "platform/property_table.h"
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

namespace {

using Property = platform::PropertyRow<ServoMenu>;

constexpr Property eigenschaften[]{
    {platform::names::BildInit.name, "Me BildInit Let", &ServoMenu::BildInit, &ServoMenu::BildInit},
    {platform::names::BildShow.name, "Me BildShow Let", &ServoMenu::BildShow, &ServoMenu::BildShow},
    {platform::names::SpracheGeandert.name, "Ma Let SpracheGeandert", &ServoMenu::SpracheGeandert, nullptr},
};

} // namespace

basic::Variant ServoMenu::get(const platform::Member& member)
{
    return platform::getProperty(std::span<const Property>{eigenschaften}, *this, member);
}

void ServoMenu::put(const platform::Member& member, const basic::Variant& value)
{
    platform::putProperty(std::span<const Property>{eigenschaften}, *this, fehler(), member, value);
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
    {"", "MouseDown", "Me UserControl_MouseDown", &fläche<&ServoMenu::UserControl_MouseDown>},
    {"", "MouseMove", "Me UserControl_MouseMove", &fläche<&ServoMenu::UserControl_MouseMove>},
    {"", "MouseUp", "Me UserControl_MouseUp", &fläche<&ServoMenu::UserControl_MouseUp>},
    {"Beschriftung", "MouseDown", "Me Beschriftung_MouseDown", &feld<&ServoMenu::Beschriftung_MouseDown>},
    {"Beschriftung", "MouseMove", "Me Beschriftung_MouseMove", &feld<&ServoMenu::Beschriftung_MouseMove>},
    {"Beschriftung", "MouseUp", "Me Beschriftung_MouseUp", &feld<&ServoMenu::Beschriftung_MouseUp>},
    {"BildIm", "MouseDown", "Me BildIm_MouseDown", &feld<&ServoMenu::BildIm_MouseDown>},
    {"BildIm", "MouseMove", "Me BildIm_MouseMove", &feld<&ServoMenu::BildIm_MouseMove>},
    {"BildIm", "MouseUp", "Me BildIm_MouseUp", &feld<&ServoMenu::BildIm_MouseUp>},
    {"ScrollBar", "NeuePos", "Me ScrollBar_NeuePos",
        [](ServoMenu& menu, std::int16_t, Args args) { menu.ScrollBar_NeuePos(number(args, 0)); }},
    {"Fußzeile", "TasteClick", "Me Fußzeile_TasteClick",
        [](ServoMenu& menu, std::int16_t, Args args) { menu.Fußzeile_TasteClick(number(args, 0)); }},
};

} // namespace

bool ServoMenu::deliver(platform::ChildId child, std::string_view event, Args args)
{
    return platform::deliverEvent(std::span<const Row>{ereignisse}, *this, fehler(), child, event, args);
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

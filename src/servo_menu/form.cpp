#include "servo_menu/form.h"

#include "display/farben.h"

namespace servopanel::servo_menu {

using platform::ChildId;
using platform::FirstValue;
using platform::FormChild;
namespace classes = platform::classes;

namespace {

constexpr std::int16_t linksbündig = 0;

constexpr FirstValue unsichtbar[]{{"Visible", false}};
// The source is always as large as its file; the other two are sized by the menu.
constexpr FirstValue quelle[]{
    {"Visible", false}, {"AutoSize", true}, {"AutoRedraw", true}, {"BackColor", display::farben::Silber}};
constexpr FirstValue arbeitsbild[]{
    {"Visible", false}, {"AutoRedraw", true}, {"BackColor", display::farben::Silber}};
// A key's picture hangs between the frame's edges; place and size come with the key grid.
constexpr FirstValue tastenBild[]{{"Visible", false}, {"Width", 8940.0F}, {"Height", 2685.0F}};
constexpr FirstValue beschriftung[]{{"Visible", false}, {"Width", 7305.0F}, {"Height", 420.0F},
    {"Alignment", linksbündig}, {"Font.Size", std::int16_t{12}}, {"Font.Bold", true}};
constexpr FirstValue überschrift[]{{"Left", 105.0F}, {"Top", 1635.0F}, {"Width", 18990.0F},
    {"Height", 600.0F}, {"Visible", true}, {"Font.Size", std::int16_t{14}}, {"Font.Bold", true},
    {"Text", std::string_view{"@Servo.Menu.0"}}};
constexpr FirstValue scrollBar[]{
    {"Left", 18285.0F}, {"Top", 2340.0F}, {"Width", 915.0F}, {"Height", 11265.0F}, {"Visible", true}};
constexpr FirstValue fußzeile[]{
    {"Left", 0.0F}, {"Top", 13740.0F}, {"Width", 19200.0F}, {"Height", 1620.0F}, {"Visible", true}};

constexpr ChildId menü{};

constexpr FormChild kinder[]{
    {{"TempPicQuelle"}, classes::PictureBox, menü, quelle},
    {{"TempPicZwischen"}, classes::PictureBox, menü, arbeitsbild},
    {{"TempPicZiel"}, classes::PictureBox, menü, arbeitsbild},
    {{"VWLanguage"}, classes::VWSLanguage, menü, unsichtbar},
    {{"Überschrift"}, classes::VWSIndex, menü, überschrift},
    {{"BildIm", 1}, classes::PictureBox, menü, tastenBild},
    {{"BildIm", 2}, classes::PictureBox, menü, tastenBild},
    {{"BildIm", 3}, classes::PictureBox, menü, tastenBild},
    {{"BildIm", 4}, classes::PictureBox, menü, tastenBild},
    {{"BildIm", 5}, classes::PictureBox, menü, tastenBild},
    {{"BildIm", 6}, classes::PictureBox, menü, tastenBild},
    {{"BildIm", 7}, classes::PictureBox, menü, tastenBild},
    {{"BildIm", 8}, classes::PictureBox, menü, tastenBild},
    {{"Beschriftung", 1}, classes::Label, menü, beschriftung},
    {{"Beschriftung", 2}, classes::Label, menü, beschriftung},
    {{"Beschriftung", 3}, classes::Label, menü, beschriftung},
    {{"Beschriftung", 4}, classes::Label, menü, beschriftung},
    {{"Beschriftung", 5}, classes::Label, menü, beschriftung},
    {{"Beschriftung", 6}, classes::Label, menü, beschriftung},
    {{"Beschriftung", 7}, classes::Label, menü, beschriftung},
    {{"Beschriftung", 8}, classes::Label, menü, beschriftung},
    {{"ScrollBar"}, classes::ScrollBar, menü, scrollBar},
    {{"Fußzeile"}, classes::Fußzeile, menü, fußzeile},
};

} // namespace

platform::FormData servoMenuForm() { return kinder; }

} // namespace servopanel::servo_menu

#include "servo_page/structure/form.h"

#include "servo_page/structure/entwurf.h"

#include <array>
#include <string_view>

namespace servopanel::servo_page {

using namespace std::string_view_literals;
using entwurf::Rechteck;
using platform::ChildId;
using platform::FirstValue;
using platform::FormChild;
namespace classes = platform::classes;

namespace {

// Place of a child and whatever else it starts with.
template <class... Weitere>
constexpr std::array<FirstValue, 4 + sizeof...(Weitere)> werte(const Rechteck& platz, Weitere... weitere)
{
    return {{{"Left", platz.links}, {"Top", platz.oben}, {"Width", platz.breite}, {"Height", platz.höhe},
        weitere...}};
}

constexpr FirstValue sichtbar{"Visible", true};
constexpr FirstValue fett{"Font.Bold", true};
constexpr FirstValue durchsichtig{"BackStyle", std::int16_t{0}};
constexpr FirstValue linksbündig{"Alignment", std::int16_t{0}};
constexpr FirstValue rechtsbündig{"Alignment", std::int16_t{1}};
constexpr FirstValue mittig{"Alignment", std::int16_t{2}};
constexpr FirstValue schwarzeSchrift{"Farbe", farben::Schwarz};
constexpr FirstValue silberneFläche{"Hintergrund", farben::Silber};
constexpr FirstValue ohneRahmen{"BorderStyle", std::int16_t{0}};
constexpr FirstValue mitRahmen{"BorderStyle", std::int16_t{1}};
constexpr FirstValue silbernerGrund{"BackColor", farben::Silber};
// Everything drawn stays, however often the box is covered and uncovered.
constexpr FirstValue bleibend{"AutoRedraw", true};
constexpr FirstValue textGröße{"Font.Size", entwurf::schriftText};
constexpr FirstValue textKlasse{"FontClass", "LSU10"sv};
constexpr FirstValue eingabeGröße{"Font.Size", entwurf::schriftEingabe};
constexpr FirstValue eingabeKlasse{"FontClass", "LSU12"sv};

constexpr auto überschrift = werte(entwurf::überschrift, sichtbar,
    FirstValue{"Font.Size", entwurf::schriftÜberschrift}, fett, linksbündig, schwarzeSchrift, durchsichtig);
constexpr auto paraPic = werte(entwurf::paraPic, sichtbar, ohneRahmen);
constexpr auto paraBeschriftung =
    werte(entwurf::paraBeschriftung, textGröße, FirstValue{"AutoSize", true}, durchsichtig);

constexpr auto mainRahmen1 = werte(entwurf::mainRahmen(1), sichtbar, ohneRahmen, silbernerGrund);
constexpr auto mainRahmen2 = werte(entwurf::mainRahmen(2), sichtbar, ohneRahmen, silbernerGrund);
constexpr auto mainBereich = werte(entwurf::mainBereich, sichtbar, ohneRahmen, silbernerGrund, bleibend);

constexpr auto beschriftung =
    werte(entwurf::beschriftung(1), linksbündig, schwarzeSchrift, durchsichtig, textGröße, textKlasse);
constexpr auto beschriftung2 =
    werte(entwurf::beschriftung2(1), linksbündig, schwarzeSchrift, durchsichtig, textGröße, textKlasse);
constexpr auto einheit =
    werte(entwurf::einheit(1), linksbündig, schwarzeSchrift, durchsichtig, textGröße, textKlasse);
constexpr auto sollwertL = werte(
    entwurf::eingabe(1), rechtsbündig, eingabeGröße, FirstValue{"VariablenName", "Ch-1.intern_v<.l2_01>"sv});
constexpr auto sollwertR = werte(
    entwurf::eingabe(11), rechtsbündig, eingabeGröße, FirstValue{"VariablenName", "Ch-1.intern_v<.l2_11>"sv});
constexpr auto schalterL = werte(entwurf::eingabe(31));
constexpr auto schalterR = werte(entwurf::eingabe(33));
constexpr auto zeichnung = werte(
    entwurf::zeichnung(41), mittig, schwarzeSchrift, silberneFläche, mitRahmen, eingabeGröße, eingabeKlasse);
constexpr auto punkt =
    werte(entwurf::punkt(41), mittig, schwarzeSchrift, silberneFläche, eingabeGröße, eingabeKlasse);

// The area is as high as its frame, so there is nothing to scroll unless a later form makes it longer.
constexpr auto scrollBar = werte(entwurf::scrollBar, sichtbar, FirstValue{"Position", std::int16_t{1}},
    FirstValue{"Seite", std::int16_t{651}}, FirstValue{"Anzahl", std::int16_t{651}});

constexpr auto detailBox = werte(entwurf::detailBox, ohneRahmen);
constexpr auto diagnoseBeschriftung = werte(
    entwurf::diagnoseBeschriftung(101), linksbündig, schwarzeSchrift, durchsichtig, textGröße, textKlasse);
constexpr auto istWert = werte(entwurf::istWert(101), rechtsbündig, eingabeGröße);
constexpr auto diagnoseEinheit =
    werte(entwurf::diagnoseEinheit(101), linksbündig, schwarzeSchrift, durchsichtig, textGröße, textKlasse);
constexpr auto istWertTab = werte(entwurf::istWertTab(121), mittig, eingabeGröße, silbernerGrund, mitRahmen);
constexpr auto fehlertext = werte(entwurf::fehlertext, linksbündig, eingabeGröße, durchsichtig,
    FirstValue{"ForeColor", std::int32_t{0x0000C0}}, FirstValue{"WordWrap", true});

constexpr auto fußzeile = werte(entwurf::fußzeile, sichtbar);
constexpr auto zeitgeber =
    werte(entwurf::unsichtbar, FirstValue{"Interval", std::int16_t{500}}, FirstValue{"Enabled", false});
constexpr auto unsichtbar = werte(entwurf::unsichtbar);
constexpr auto maske = werte(entwurf::maske);

constexpr ChildId seite{};
constexpr ChildId linkerRahmen{"MainRahmen", 1};
constexpr ChildId rechterRahmen{"MainRahmen", 2};
constexpr ChildId links{"MainBereich", 1};
constexpr ChildId rechts{"MainBereich", 2};
constexpr ChildId detail{"DetailBox"};

// From bottom to top.
constexpr FormChild kinder[]{
    {{"Timer"}, classes::Timer, seite, zeitgeber},
    {{"VWLanguage"}, classes::VWSLanguage, seite, unsichtbar},
    {{"Pseudo"}, classes::VWSVarIn, seite, unsichtbar},
    {{"Überschrift"}, classes::VWSLangSelect, seite, überschrift},
    {{"ParaPic"}, classes::VWSPicBox, seite, paraPic},
    {{"ParaBeschriftung", 0}, classes::Label, {"ParaPic"}, paraBeschriftung},

    {{"MainRahmen", 1}, classes::PictureBox, seite, mainRahmen1},
    {{"MainRahmen", 2}, classes::PictureBox, seite, mainRahmen2},
    {{"MainBereich", 1}, classes::PictureBox, linkerRahmen, mainBereich},
    {{"MainBereich", 2}, classes::PictureBox, rechterRahmen, mainBereich},
    {{"BeschriftungL", 1}, classes::VWSIndex, links, beschriftung},
    {{"BeschriftungL2", 1}, classes::VWSIndex, links, beschriftung2},
    {{"EinheitL", 1}, classes::VWSIndex, links, einheit},
    {{"SollwertL", 1}, classes::VWSVarIn, links, sollwertL},
    {{"SchalterL", 31}, classes::Schalter, links, schalterL},
    {{"PunktL", 41}, classes::VWSIndex, links, punkt},
    {{"ZeichnungL", 41}, classes::VWSIndex, links, zeichnung},
    {{"BeschriftungR", 11}, classes::VWSIndex, rechts, beschriftung},
    {{"BeschriftungR2", 11}, classes::VWSIndex, rechts, beschriftung2},
    {{"EinheitR", 11}, classes::VWSIndex, rechts, einheit},
    {{"SollwertR", 11}, classes::VWSVarIn, rechts, sollwertR},
    {{"SchalterR", 33}, classes::Schalter, rechts, schalterR},
    {{"PunktR", 42}, classes::VWSIndex, rechts, punkt},
    {{"ZeichnungR", 42}, classes::VWSIndex, rechts, zeichnung},
    {{"ScrollBar"}, classes::ScrollBar, seite, scrollBar},

    {{"DetailBox"}, classes::VWSPicBox, seite, detailBox},
    {{"Beschriftung", 101}, classes::VWSIndex, detail, diagnoseBeschriftung},
    {{"Einheit", 101}, classes::VWSIndex, detail, diagnoseEinheit},
    {{"IstWert", 101}, classes::VWSVarOut, detail, istWert},
    {{"IstWertTab", 121}, classes::Label, detail, istWertTab},
    {{"Fehlertext"}, classes::Label, detail, fehlertext},

    {{"Fußzeile"}, classes::Fußzeile, seite, fußzeile},
    {{"IniEingabe"}, classes::IniEingabe, seite, maske},
    {{"Eingabemaske"}, classes::Eingabemaske, seite, maske},
};

} // namespace

platform::FormData servoMainForm() { return kinder; }

} // namespace servopanel::servo_page

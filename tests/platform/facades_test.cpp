#include "platform/facades/eingabemaske.h"
#include "platform/facades/fusszeile.h"
#include "platform/facades/ini_eingabe.h"
#include "platform/facades/intrinsic.h"
#include "platform/facades/istwert.h"
#include "platform/facades/schalter.h"
#include "platform/facades/scroll_bar.h"
#include "platform/facades/sollwert.h"
#include "platform/facades/sprachtext.h"
#include "platform/facades/textanzeige.h"
#include "support/fake_control.h"

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace {

using namespace servopanel;
using namespace servopanel::platform;
using basic::Variant;
using basic::VariantType;
using servopanel::testing::Crossing;
using servopanel::testing::FakeControl;

using Types = std::vector<VariantType>;

constexpr auto Empty = VariantType::Empty;
constexpr auto Boolean = VariantType::Boolean;
constexpr auto Byte = VariantType::Byte;
constexpr auto Int16 = VariantType::Int16;
constexpr auto Int32 = VariantType::Int32;
constexpr auto Single = VariantType::Single;
constexpr auto Double = VariantType::Double;
constexpr auto Text = VariantType::Text;
constexpr auto ObjectType = VariantType::Object;

// One method of a facade: what it does to the control, and what must cross for it.
struct Row {
    const char* name;
    Variant (*use)(const ControlRef& control); // the result, Empty when the method has none
    const char* verb;
    Member member;
    Types args; // in order
    VariantType value; // of a property that is set
    VariantType result;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

// A method without a result.
template <class F>
Variant done(F&& use)
{
    use();
    return {};
}

constexpr std::int16_t i16 = 3;
constexpr std::int32_t i32 = 3;
constexpr std::uint8_t key = 3;

const Row rows[]{
    {"LeftGet", [](const ControlRef& c) -> Variant { return Facade{c}.Left(); }, "get", ids::Extender::Left,
        {}, Empty, Single},
    {"LeftPut", [](const ControlRef& c) { return done([&] { Facade{c}.Left(3.0F); }); }, "put",
        ids::Extender::Left, {}, Single, Empty},
    {"TopGet", [](const ControlRef& c) -> Variant { return Facade{c}.Top(); }, "get", ids::Extender::Top, {},
        Empty, Single},
    {"TopPut", [](const ControlRef& c) { return done([&] { Facade{c}.Top(3.0F); }); }, "put",
        ids::Extender::Top, {}, Single, Empty},
    {"WidthGet", [](const ControlRef& c) -> Variant { return Facade{c}.Width(); }, "get",
        ids::Extender::Width, {}, Empty, Single},
    {"WidthPut", [](const ControlRef& c) { return done([&] { Facade{c}.Width(3.0F); }); }, "put",
        ids::Extender::Width, {}, Single, Empty},
    {"HeightGet", [](const ControlRef& c) -> Variant { return Facade{c}.Height(); }, "get",
        ids::Extender::Height, {}, Empty, Single},
    {"HeightPut", [](const ControlRef& c) { return done([&] { Facade{c}.Height(3.0F); }); }, "put",
        ids::Extender::Height, {}, Single, Empty},
    {"VisibleGet", [](const ControlRef& c) -> Variant { return Facade{c}.Visible(); }, "get",
        ids::Extender::Visible, {}, Empty, Boolean},
    {"VisiblePut", [](const ControlRef& c) { return done([&] { Facade{c}.Visible(true); }); }, "put",
        ids::Extender::Visible, {}, Boolean, Empty},
    {"EnabledPut", [](const ControlRef& c) { return done([&] { Facade{c}.Enabled(true); }); }, "put",
        ids::Extender::Enabled, {}, Boolean, Empty},

    {"SollwertVariablenName",
        [](const ControlRef& c) { return done([&] { Sollwert{c}.VariablenName("v"); }); }, "put",
        ids::VWSVarIn::VariablenName, {}, Text, Empty},
    {"SollwertWertGet", [](const ControlRef& c) { return Sollwert{c}.Wert(); }, "get", ids::VWSVarIn::Wert,
        {}, Empty, Text},
    {"SollwertWertPut", [](const ControlRef& c) { return done([&] { Sollwert{c}.Wert(2.5); }); }, "put",
        ids::VWSVarIn::Wert, {}, Double, Empty},
    {"SollwertWertPutKeepsTheType",
        [](const ControlRef& c) { return done([&] { Sollwert{c}.Wert(basic::Currency{1}); }); }, "put",
        ids::VWSVarIn::Wert, {}, VariantType::Currency, Empty},
    {"SollwertObergrenze", [](const ControlRef& c) { return done([&] { Sollwert{c}.Obergrenze("9"); }); },
        "put", ids::VWSVarIn::Obergrenze, {}, Text, Empty},
    {"SollwertUntergrenze", [](const ControlRef& c) { return done([&] { Sollwert{c}.Untergrenze("1"); }); },
        "put", ids::VWSVarIn::Untergrenze, {}, Text, Empty},
    {"SollwertVordergrundGet", [](const ControlRef& c) -> Variant { return Sollwert{c}.Vordergrund(); },
        "get", ids::VWSVarIn::Vordergrund, {}, Empty, Int32},
    {"SollwertVordergrundPut",
        [](const ControlRef& c) { return done([&] { Sollwert{c}.Vordergrund(i32); }); }, "put",
        ids::VWSVarIn::Vordergrund, {}, Int32, Empty},

    {"IstwertWert", [](const ControlRef& c) { return done([&] { Istwert{c}.Wert(i16); }); }, "put",
        ids::VWSVarOut::Wert, {}, Int16, Empty},

    {"TextanzeigeTextGet", [](const ControlRef& c) -> Variant { return Textanzeige{c}.Text(); }, "get",
        ids::VWSIndex::Text, {}, Empty, Text},
    {"TextanzeigeTextPut", [](const ControlRef& c) { return done([&] { Textanzeige{c}.Text("@a.b"); }); },
        "put", ids::VWSIndex::Text, {}, Text, Empty},
    {"TextanzeigeFarbeGet", [](const ControlRef& c) -> Variant { return Textanzeige{c}.Farbe(); }, "get",
        ids::VWSIndex::Farbe, {}, Empty, Int32},
    {"TextanzeigeFarbePut", [](const ControlRef& c) { return done([&] { Textanzeige{c}.Farbe(i32); }); },
        "put", ids::VWSIndex::Farbe, {}, Int32, Empty},
    {"TextanzeigeFontBold", [](const ControlRef& c) { return done([&] { Textanzeige{c}.FontBold(true); }); },
        "put", names::FontBold, {}, Boolean, Empty},
    {"TextanzeigeHintergrund",
        [](const ControlRef& c) { return done([&] { Textanzeige{c}.Hintergrund(i32); }); }, "put",
        ids::VWSIndex::Hintergrund, {}, Int32, Empty},

    {"SprachtextText", [](const ControlRef& c) -> Variant { return Sprachtext{c}.Text("a.b"); }, "call",
        ids::VWSLanguage::Text, {Text}, Empty, Text},
    {"SprachtextFontName", [](const ControlRef& c) { return Sprachtext{c}.FontName(); }, "get",
        names::FontName, {}, Empty, Text},
    {"SprachtextFontCharset", [](const ControlRef& c) { return Sprachtext{c}.FontCharset(); }, "get",
        names::FontCharset, {}, Empty, Text},
    {"SprachtextFontBold", [](const ControlRef& c) { return Sprachtext{c}.FontBold(); }, "get",
        names::FontBold, {}, Empty, Text},
    {"SprachtextFontWeight", [](const ControlRef& c) { return Sprachtext{c}.FontWeight(); }, "get",
        names::FontWeight, {}, Empty, Text},

    {"FusszeileFreigabe", [](const ControlRef& c) { return done([&] { Fußzeile{c}.Freigabe(key, true); }); },
        "call", ids::Fußzeile::Freigabe, {Byte, Boolean}, Empty, Empty},
    {"FusszeileTextNummer",
        [](const ControlRef& c) { return done([&] { Fußzeile{c}.TextNummer(key, i16); }); }, "call",
        ids::Fußzeile::TextNummer, {Byte, Int16}, Empty, Empty},
    {"FusszeileFarbe", [](const ControlRef& c) { return done([&] { Fußzeile{c}.Farbe(key, i32); }); }, "call",
        ids::Fußzeile::Farbe, {Byte, Int32}, Empty, Empty},
    {"FusszeileBild", [](const ControlRef& c) { return done([&] { Fußzeile{c}.Bild(key, "a.gif"); }); },
        "call", ids::Fußzeile::Bild, {Byte, Text}, Empty, Empty},
    {"FusszeileEinstellung", [](const ControlRef& c) -> Variant { return Fußzeile{c}.Einstellung(key); },
        "call", ids::Fußzeile::Einstellung, {Byte}, Empty, Int32},

    {"EingabemaskeOffenGet", [](const ControlRef& c) -> Variant { return Eingabemaske{c}.Offen(); }, "get",
        ids::Eingabemaske::Offen, {}, Empty, Boolean},
    {"EingabemaskeOffenPut", [](const ControlRef& c) { return done([&] { Eingabemaske{c}.Offen(true); }); },
        "put", ids::Eingabemaske::Offen, {}, Boolean, Empty},
    {"EingabemaskeZiel",
        [](const ControlRef& c) {
            return done([&] { Eingabemaske{c}.Ziel(std::make_shared<FakeControl>("VWSVarIn")); });
        },
        "putRef", ids::Eingabemaske::Ziel, {}, ObjectType, Empty},

    {"IniEingabeOffenGet", [](const ControlRef& c) -> Variant { return IniEingabe{c}.Offen(); }, "get",
        ids::IniEingabe::Offen, {}, Empty, Boolean},
    {"IniEingabeOffenPut", [](const ControlRef& c) { return done([&] { IniEingabe{c}.Offen(true); }); },
        "put", ids::IniEingabe::Offen, {}, Boolean, Empty},
    {"IniEingabePassGet", [](const ControlRef& c) -> Variant { return IniEingabe{c}.Pass(); }, "get",
        ids::IniEingabe::Pass, {}, Empty, Int16},
    {"IniEingabePassPut", [](const ControlRef& c) { return done([&] { IniEingabe{c}.Pass(i16); }); }, "put",
        ids::IniEingabe::Pass, {}, Int16, Empty},
    {"IniEingabeMaxGet", [](const ControlRef& c) -> Variant { return IniEingabe{c}.Max(); }, "get",
        ids::IniEingabe::Max, {}, Empty, Double},
    {"IniEingabeMaxPut", [](const ControlRef& c) { return done([&] { IniEingabe{c}.Max(3.0); }); }, "put",
        ids::IniEingabe::Max, {}, Double, Empty},
    {"IniEingabeMinGet", [](const ControlRef& c) -> Variant { return IniEingabe{c}.Min(); }, "get",
        ids::IniEingabe::Min, {}, Empty, Double},
    {"IniEingabeMinPut", [](const ControlRef& c) { return done([&] { IniEingabe{c}.Min(3.0); }); }, "put",
        ids::IniEingabe::Min, {}, Double, Empty},

    {"ScrollBarPosition", [](const ControlRef& c) -> Variant { return ScrollBar{c}.Position(); }, "get",
        ids::ScrollBar::Position, {}, Empty, Int16},
    {"ScrollBarSeite", [](const ControlRef& c) -> Variant { return ScrollBar{c}.Seite(); }, "get",
        ids::ScrollBar::Seite, {}, Empty, Int16},
    {"ScrollBarAnzahlGet", [](const ControlRef& c) -> Variant { return ScrollBar{c}.Anzahl(); }, "get",
        ids::ScrollBar::Anzahl, {}, Empty, Int16},
    {"ScrollBarAnzahlPut", [](const ControlRef& c) { return done([&] { ScrollBar{c}.Anzahl(i16); }); }, "put",
        ids::ScrollBar::Anzahl, {}, Int16, Empty},
    {"ScrollBarRahmen", [](const ControlRef& c) { return done([&] { ScrollBar{c}.Rahmen(i16); }); }, "put",
        ids::ScrollBar::Rahmen, {}, Int16, Empty},
    {"ScrollBarAktiv", [](const ControlRef& c) { return done([&] { ScrollBar{c}.Aktiv(true); }); }, "put",
        ids::ScrollBar::Aktiv, {}, Boolean, Empty},
    {"ScrollBarGesperrt", [](const ControlRef& c) { return done([&] { ScrollBar{c}.Gesperrt(false); }); },
        "put", ids::ScrollBar::Gesperrt, {}, Boolean, Empty},

    {"SchalterZustandGet", [](const ControlRef& c) -> Variant { return Schalter{c}.Zustand(); }, "get",
        ids::Schalter::Zustand, {}, Empty, Boolean},
    {"SchalterZustandPut", [](const ControlRef& c) { return done([&] { Schalter{c}.Zustand(true); }); },
        "put", ids::Schalter::Zustand, {}, Boolean, Empty},
    {"SchalterZustandPutWeight", [](const ControlRef& c) { return done([&] { Schalter{c}.Zustand(i32); }); },
        "put", ids::Schalter::Zustand, {}, Int32, Empty},
    {"SchalterFreigabe", [](const ControlRef& c) { return done([&] { Schalter{c}.Freigabe(true); }); }, "put",
        ids::Schalter::Freigabe, {}, Boolean, Empty},

    {"LabelCaption", [](const ControlRef& c) { return done([&] { Label{c}.Caption("a"); }); }, "put",
        names::Caption, {}, Text, Empty},
    {"LabelForeColor", [](const ControlRef& c) { return done([&] { Label{c}.ForeColor(i32); }); }, "put",
        names::ForeColor, {}, Int32, Empty},
    {"LabelFontName", [](const ControlRef& c) { return done([&] { Label{c}.FontName("Arial"); }); }, "put",
        names::FontName, {}, Text, Empty},
    {"LabelFontCharset", [](const ControlRef& c) { return done([&] { Label{c}.FontCharset(i16); }); }, "put",
        names::FontCharset, {}, Int16, Empty},
    {"LabelFontBold", [](const ControlRef& c) { return done([&] { Label{c}.FontBold(true); }); }, "put",
        names::FontBold, {}, Boolean, Empty},
    {"LabelFontWeight", [](const ControlRef& c) { return done([&] { Label{c}.FontWeight(i16); }); }, "put",
        names::FontWeight, {}, Int16, Empty},
    {"BildfeldPicture", [](const ControlRef& c) { return done([&] { Bildfeld{c}.Picture(nullptr); }); },
        "put", names::Picture, {}, ObjectType, Empty},
    {"ZeitgeberEnabled", [](const ControlRef& c) { return done([&] { Zeitgeber{c}.Enabled(true); }); }, "put",
        names::Enabled, {}, Boolean, Empty},

    {"KindBildInitGet", [](const ControlRef& c) -> Variant { return Kind{c}.BildInit(); }, "get",
        names::BildInit, {}, Empty, Int16},
    {"KindBildInitPut", [](const ControlRef& c) { return done([&] { Kind{c}.BildInit(i16); }); }, "put",
        names::BildInit, {}, Int16, Empty},
    {"KindBildShowGet", [](const ControlRef& c) -> Variant { return Kind{c}.BildShow(); }, "get",
        names::BildShow, {}, Empty, Int16},
    {"KindBildShowPut", [](const ControlRef& c) { return done([&] { Kind{c}.BildShow(i16); }); }, "put",
        names::BildShow, {}, Int16, Empty},
    {"KindSpracheGeandert", [](const ControlRef& c) { return done([&] { Kind{c}.SpracheGeandert(i16); }); },
        "put", names::SpracheGeandert, {}, Int16, Empty},
};

class Facades : public ::testing::TestWithParam<Row> { };

TEST_P(Facades, SendExactlyTheTypesOfTheContract)
{
    const Row& row = GetParam();
    const auto control = std::make_shared<FakeControl>("Anything");
    // A text that every type reads as a number, so that a getter's own conversion shows.
    control->properties[basic::upperCase(row.member.name)] = "3";
    control->result = "3";

    const Variant result = row.use(control);

    ASSERT_EQ(control->crossings.size(), 1U);
    const Crossing& crossing = control->crossings.front();
    EXPECT_EQ(crossing.verb, row.verb);
    EXPECT_EQ(crossing.member.id, row.member.id);
    EXPECT_EQ(crossing.member.name, row.member.name);
    EXPECT_EQ(crossing.member.kind, row.member.kind);
    EXPECT_EQ(crossing.member.kind == MemberKind::Method, crossing.verb == "call");
    Types args;
    for (const Variant& arg : crossing.args)
        args.push_back(arg.type());
    EXPECT_EQ(args, row.args);
    EXPECT_EQ(crossing.value.type(), row.value);
    EXPECT_EQ(result.type(), row.result);
    if (row.result != Empty && row.result != Boolean) {
        EXPECT_EQ(basic::toText(result), "3");
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Facades, ::testing::ValuesIn(rows), [](const auto& row) { return std::string{row.param.name}; });

TEST(Facade, LetsTheControlsErrorThrough)
{
    const auto control = std::make_shared<FakeControl>("Anything");
    control->missing = {"LEFT"};
    EXPECT_THROW(Facade{control}.Left(1.0F), basic::Error);
    control->properties["TOP"] = "above";
    EXPECT_THROW(Facade{control}.Top(), basic::Error);
}

} // namespace

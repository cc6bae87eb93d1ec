#include "recording/trace/value_text.h"

#include "basic/error.h"
#include "platform/ids.h"
#include "platform/pictures.h"
#include "recording/trace/boolean_members.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>

namespace {

using namespace servopanel;
using namespace servopanel::recording;
namespace ids = platform::ids;
namespace names = platform::names;

std::string text(const basic::Variant& value, ValueKind kind = ValueKind::Plain)
{
    return valueText(value, PathNames{}, kind);
}

TEST(ValueText, WritesNumbersInTheirShortestDecimalForm)
{
    EXPECT_EQ(text(std::int16_t{-5}), "-5");
    EXPECT_EQ(text(std::int32_t{12632256}), "12632256");
    EXPECT_EQ(text(std::uint8_t{200}), "200");
    EXPECT_EQ(text(12.0), "12");
    EXPECT_EQ(text(-0.0), "0");
    EXPECT_EQ(text(-0.0F), "0");
    EXPECT_EQ(text(0.1), "0.1");
    EXPECT_EQ(text(1e21), "1000000000000000000000");
    EXPECT_EQ(text(1.5e-7), "0.00000015");
    EXPECT_EQ(text(1.0 / 3.0), "0.3333333333333333");
    EXPECT_EQ(text(basic::Currency{12500}), "1.25");
    EXPECT_EQ(text(basic::Date{1.5}), "1.5");
}

TEST(ValueText, WritesASingleInItsOwnShortestForm)
{
    EXPECT_EQ(text(0.1F), "0.1");
    EXPECT_EQ(text(9637.5F), "9637.5");
    EXPECT_EQ(text(7342.916F), "7342.916");
    EXPECT_EQ(text(16777216.0F), "16777216");
}

TEST(ValueText, HoldsTheLongestNumbers)
{
    EXPECT_EQ(text(1.7976931348623157e308).size(), 309U);
    EXPECT_EQ(text(-4.9e-324).substr(0, 5), "-0.00");
}

TEST(ValueText, WritesBooleansAndTheOtherTypes)
{
    EXPECT_EQ(text(true), "true");
    EXPECT_EQ(text(false), "false");
    EXPECT_EQ(text({}), "empty");
    EXPECT_EQ(text(basic::Null{}), "null");
    EXPECT_EQ(text(basic::Missing{}), "missing");
    EXPECT_EQ(text(basic::ErrorCode{13}), "error 13");
}

TEST(ValueText, QuotesTextsAndDoublesTheirQuotes)
{
    EXPECT_EQ(text(""), "\"\"");
    EXPECT_EQ(text("Fußzeile"), "\"Fußzeile\"");
    EXPECT_EQ(text("a \"b\""), "\"a \"\"b\"\"\"");
}

TEST(ValueText, KeepsALineBreakWithinItsLine) { EXPECT_EQ(text("a\r\nb"), "\"a\u240D\u240Ab\""); }

TEST(ValueText, WritesArraysElementByElement)
{
    EXPECT_EQ(text(basic::doubles({1, 2.5})), "[1, 2.5]");
    EXPECT_EQ(text(basic::Array{}), "[]");
    EXPECT_EQ(text(basic::Array{basic::VariantType::Variant, 1, {basic::Variant{"x"}, basic::Variant{true}}}),
        "[\"x\", true]");
}

struct NamedPicture : platform::Picture {
    std::string file() const override { return "D:\\Line\\Servo\\A.gif"; }
};
struct NamedObject : basic::Object, TracedObject {
    std::string name = "ServoMain.SollwertL(5)";
    const std::string& traceName() const override { return name; }
};

TEST(ValueText, NamesObjectsAndPictures)
{
    PathNames paths;
    paths.learn("Servo\\A.gif", "D:\\Line\\Servo\\A.gif");
    EXPECT_EQ(valueText(std::make_shared<NamedPicture>(), paths), "<picture Servo\\A.gif>");
    EXPECT_EQ(valueText(basic::ObjectRef{}, paths), "<none>");
    EXPECT_EQ(valueText(std::make_shared<NamedObject>(), paths), "ServoMain.SollwertL(5)");
    EXPECT_EQ(valueText(std::make_shared<basic::Object>(), paths), "<object>");
}

TEST(ValueText, TakesMinusOneAndZeroOfABooleanMemberForTrueAndFalse)
{
    EXPECT_EQ(text(std::int16_t{-1}, ValueKind::Boolean), "true");
    EXPECT_EQ(text(std::int16_t{0}, ValueKind::Boolean), "false");
    EXPECT_EQ(text(std::int16_t{1}, ValueKind::Boolean), "1");
    EXPECT_EQ(text(std::int32_t{-1}, ValueKind::Boolean), "true");
    EXPECT_EQ(text("x", ValueKind::Boolean), "\"x\"");
}

TEST(ColourText, HasSixDigits)
{
    EXPECT_EQ(colourText(0xC0C0C0), "C0C0C0");
    EXPECT_EQ(colourText(0), "000000");
    EXPECT_EQ(colourText(32768), "008000");
}

TEST(MemberText, WritesIdsByTheirSize)
{
    EXPECT_EQ(memberText(ids::VWSVarIn::Wert), "8");
    EXPECT_EQ(memberText(ids::VWSVarIn::Vordergrund), "-513");
    EXPECT_EQ(memberText(ids::Fußzeile::Bild), "0x68030007");
    EXPECT_EQ(memberText(platform::property(0xFFF, "")), "4095");
    EXPECT_EQ(memberText(platform::property(0x1000, "")), "0x00001000");
}

TEST(MemberText, NamesTheMembersOfTheContainer)
{
    EXPECT_EQ(memberText(ids::Extender::Left), "Left");
    EXPECT_EQ(memberText(ids::Extender::Top), "Top");
    EXPECT_EQ(memberText(ids::Extender::Width), "Width");
    EXPECT_EQ(memberText(ids::Extender::Height), "Height");
    EXPECT_EQ(memberText(ids::Extender::Visible), "Visible");
    EXPECT_EQ(memberText(platform::property(0x8001000d, "")), "Enabled");
    EXPECT_EQ(memberText(names::FontSize), "Font.Size");
}

TEST(ObjectText, PutsTheOwnerBeforeAChildExceptTheShells)
{
    EXPECT_EQ(objectText("ServoMain", {"Fußzeile"}), "ServoMain.Fußzeile");
    EXPECT_EQ(objectText("ServoMenu", {"BildIm", 3}), "ServoMenu.BildIm(3)");
    EXPECT_EQ(objectText("ServoMain", {"ParaBeschriftung", 0}), "ServoMain.ParaBeschriftung(0)");
    EXPECT_EQ(objectText("Servo", {"Header"}), "Header");
    EXPECT_EQ(objectText("Servo", {}), "Servo");
    EXPECT_EQ(objectText("ServoMenu", {}), "ServoMenu");
}

TEST(PropertyKind, KnowsTheBooleanMembers)
{
    for (const auto& member : {ids::Extender::Visible, ids::Extender::Enabled, names::Visible, names::Enabled,
             names::BildInit, names::BildShow, platform::named("VISIBLE")})
        EXPECT_EQ(propertyKind("ServoMain", member), ValueKind::Boolean) << member.name;
    EXPECT_EQ(propertyKind("Eingabemaske", ids::Eingabemaske::Offen), ValueKind::Boolean);
    EXPECT_EQ(propertyKind("IniEingabe", ids::IniEingabe::Offen), ValueKind::Boolean);
    EXPECT_EQ(propertyKind("ScrollBar", ids::ScrollBar::Aktiv), ValueKind::Boolean);
    EXPECT_EQ(propertyKind("ScrollBar", ids::ScrollBar::Gesperrt), ValueKind::Boolean);
    EXPECT_EQ(propertyKind("Schalter", ids::Schalter::Freigabe), ValueKind::Boolean);
}

TEST(PropertyKind, TellsApartWhatTheSameIdMeansInOtherClasses)
{
    EXPECT_EQ(propertyKind("ScrollBar", ids::ScrollBar::Position), ValueKind::Plain);
    EXPECT_EQ(propertyKind("IniEingabe", ids::IniEingabe::Pass), ValueKind::Plain);
    EXPECT_EQ(propertyKind("ServoMain", names::SpracheGeandert), ValueKind::Plain);
    // A weight of a bit is a number, also the weight 0.
    EXPECT_EQ(propertyKind("Schalter", ids::Schalter::Zustand), ValueKind::Plain);
}

TEST(ArgumentKind, KnowsTheSwitchOfAFooterKey)
{
    EXPECT_EQ(argumentKind("Fußzeile", ids::Fußzeile::Freigabe, 1), ValueKind::Boolean);
    EXPECT_EQ(argumentKind("Fußzeile", ids::Fußzeile::Freigabe, 0), ValueKind::Plain);
    EXPECT_EQ(argumentKind("Fußzeile", ids::Fußzeile::TextNummer, 1), ValueKind::Plain);
}

} // namespace

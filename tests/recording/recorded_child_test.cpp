#include "recording/trace/recorded_child.h"

#include "platform/facades/eingabemaske.h"
#include "platform/facades/fusszeile.h"
#include "platform/facades/intrinsic.h"
#include "platform/facades/schalter.h"
#include "platform/facades/sprachtext.h"
#include "support/error_number.h"
#include "support/fake_control.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace servopanel;
using namespace servopanel::recording;
using servopanel::testing::errorNumber;
using servopanel::testing::FakeControl;

struct RecordedChildTest : ::testing::Test {
    std::string written;
    PathNames paths;
    TraceSink sink{[this](std::string_view lines) { written += lines; }};

    std::shared_ptr<FakeControl> fake;
    std::shared_ptr<RecordedChild> child(const std::string& className, const std::string& name)
    {
        fake = std::make_shared<FakeControl>(className);
        return std::make_shared<RecordedChild>(fake, name, paths, sink);
    }
};

TEST_F(RecordedChildTest, WritesAPutWithItsValue)
{
    const auto recorded = child("Label", "ServoMain.Beschriftung(101)");
    platform::Label{recorded}.Caption("A \"b\"");
    platform::Label{recorded}.Left(105.5F);
    platform::Label{recorded}.Visible(true);
    EXPECT_EQ(written,
        "put ServoMain.Beschriftung(101).Caption = \"A \"\"b\"\"\"\n"
        "put ServoMain.Beschriftung(101).Left = 105.5\n"
        "put ServoMain.Beschriftung(101).Visible = true\n");
    EXPECT_EQ(
        fake->puts(), (std::vector<std::string>{"Caption = A \"b\"", "Left = 105.5", "Visible = True"}));
}

TEST_F(RecordedChildTest, WritesNothingForReads)
{
    const auto recorded = child("Label", "ServoMain.Fehlertext");
    fake->properties["HEIGHT"] = 300.0F;
    EXPECT_EQ(platform::Label{recorded}.Height(), 300.0F);
    EXPECT_EQ(written, "");
}

TEST_F(RecordedChildTest, WritesAPutThatFails)
{
    const auto recorded = child("Label", "ServoMain.Fehlertext");
    fake->missing = {"CAPTION"};
    EXPECT_EQ(errorNumber([&] { return platform::Label{recorded}.Caption("x"), 0; }), 438);
    EXPECT_EQ(written, "put ServoMain.Fehlertext.Caption = \"x\"\n");
}

TEST_F(RecordedChildTest, WritesTheShellsBooleansAndItsLanguageNumber)
{
    const auto recorded = child("ServoMain", "ServoMain");
    platform::Kind{recorded}.BildInit(-1);
    platform::Kind{recorded}.BildShow(0);
    platform::Kind{recorded}.BildShow(2);
    platform::Kind{recorded}.SpracheGeandert(-1);
    EXPECT_EQ(written,
        "put ServoMain.BildInit = true\n"
        "put ServoMain.BildShow = false\n"
        "put ServoMain.BildShow = 2\n"
        "put ServoMain.SpracheGeandert = -1\n");
}

TEST_F(RecordedChildTest, WritesCallsWithTheirArgumentsAndResults)
{
    const auto recorded = child("Fußzeile", "ServoMain.Fußzeile");
    platform::Fußzeile footer{recorded};
    footer.Bild(9, "Standard\\OK.wmf");
    footer.Freigabe(5, false);
    footer.TextNummer(31, 10000);
    fake->result = std::int32_t{12632256};
    EXPECT_EQ(footer.Einstellung(11), 12632256);
    EXPECT_EQ(written,
        "call ServoMain.Fußzeile.0x68030007(9, \"Standard\\OK.wmf\")\n"
        "call ServoMain.Fußzeile.0x68030004(5, false)\n"
        "call ServoMain.Fußzeile.0x68030005(31, 10000)\n"
        "call ServoMain.Fußzeile.0x68030008(11) -> 12632256\n");
}

TEST_F(RecordedChildTest, WritesASwitchsBitAsNumberAndItsToggleAsBoolean)
{
    const auto recorded = child("Schalter", "ServoMain.SchalterL(31)");
    platform::Schalter{recorded}.Zustand(std::int32_t{0});
    platform::Schalter{recorded}.Zustand(std::int32_t{4});
    platform::Schalter{recorded}.Zustand(true);
    EXPECT_EQ(written,
        "put ServoMain.SchalterL(31).0x68030000 = 0\n"
        "put ServoMain.SchalterL(31).0x68030000 = 4\n"
        "put ServoMain.SchalterL(31).0x68030000 = true\n");
}

TEST_F(RecordedChildTest, WritesALanguageTextByItsKey)
{
    const auto recorded = child("VWSLanguage", "ServoMain.VWLanguage");
    fake->result = "Speed;mm/s";
    EXPECT_EQ(platform::Sprachtext{recorded}.Text("Servo.M1.Servo3.1"), "Speed;mm/s");
    EXPECT_EQ(written, "text Servo.M1.Servo3.1 = \"Speed;mm/s\"\n");
}

TEST_F(RecordedChildTest, HandsTheHostItsOwnControls)
{
    const auto target = child("VWSVarIn", "ServoMain.SollwertL(5)");
    const auto ownTarget = fake;
    const auto mask = child("Eingabemaske", "ServoMain.Eingabemaske");
    platform::Eingabemaske{mask}.Ziel(target);
    EXPECT_EQ(written, "put ServoMain.Eingabemaske.0x68030001 = ServoMain.SollwertL(5)\n");
    ASSERT_EQ(fake->crossings.size(), 1U);
    EXPECT_EQ(fake->crossings[0].verb, "putRef");
    EXPECT_EQ(fake->crossings[0].value, basic::Variant{ownTarget});
}

TEST_F(RecordedChildTest, UnwrapsArgumentsToo)
{
    const auto argument = child("VWSVarIn", "ServoMain.Pseudo");
    const auto own = fake;
    const auto recorded = child("Eingabemaske", "ServoMain.Eingabemaske");
    const basic::Variant args[]{basic::Variant{argument}, basic::ObjectRef{}};
    recorded->call(platform::method(0x68030009, "Anything"), args);
    EXPECT_EQ(written, "call ServoMain.Eingabemaske.0x68030009(ServoMain.Pseudo, <none>)\n");
    EXPECT_EQ(
        fake->crossings[0].args, (std::vector<basic::Variant>{basic::Variant{own}, basic::ObjectRef{}}));
}

TEST_F(RecordedChildTest, KeepsTheClassOfTheControl)
{
    EXPECT_EQ(child("VWSIndex", "ServoMain.Beschriftung(101)")->className(), "VWSIndex");
}

} // namespace

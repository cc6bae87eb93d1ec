// What the page keeps without showing it anywhere.
#include "servo_page_values/lone_page.h"

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

namespace servopanel::servo_page::tests {
namespace {

constexpr std::int32_t silver = 0xC0C0C0;

struct PanelClass {
    std::int16_t resolution;
    std::int16_t lineHeight; // twips, as the other two
    float captionWidth;
    std::int16_t captionOffset;
};
void PrintTo(const PanelClass& row, std::ostream* out) { *out << row.resolution; }

class LinesOf : public ::testing::TestWithParam<PanelClass> { };

TEST_P(LinesOf, ArePlannedByThePanelsClass)
{
    const PanelClass& row = GetParam();
    testing::Lone<ServoMain> page;
    page.surround.world().variables["parameter<.aufloesung>"] = row.resolution;
    page.control.BildInit(1);
    const SeitenAufbau& kept = page.control.zustand().aufbau;
    EXPECT_EQ(kept.Zeilenhöhe, row.lineHeight);
    EXPECT_EQ(kept.TextBreite, row.captionWidth);
    EXPECT_EQ(kept.TextVersatz, row.captionOffset);
}

INSTANTIATE_TEST_SUITE_P(Panels, LinesOf,
    ::testing::Values(
        PanelClass{800, 30, 360, -45}, PanelClass{1024, 45, 585, 0}, PanelClass{1280, 45, 585, 0}),
    [](const auto& row) { return std::to_string(row.param.resolution); });

class WhatThePageKeeps : public testing::LonePage {
protected:
    const SeitenZustand& kept() const { return page.control.zustand(); }
};

TEST_F(WhatThePageKeeps, StartsWithSilverKeys)
{
    for (std::int16_t key = 1; key <= 11; ++key)
        EXPECT_EQ(kept().fußzeile.TastenEinstellung[key], silver) << key;
}

TEST_F(WhatThePageKeeps, HoldsTheSettingsOfTheKeysThatItWithdrew)
{
    page.fake("Fußzeile")->result = std::int32_t{0x00FF00};
    page.control.FußzeileFreigabe(true);
    EXPECT_EQ(kept().fußzeile.TastenEinstellung[1], silver);
    page.control.FußzeileFreigabe(false);
    for (std::int16_t key = 1; key <= 11; ++key)
        EXPECT_EQ(kept().fußzeile.TastenEinstellung[key], 0x00FF00) << key;
}

// Releasing goes by the table; key 4 has its place there, which stays as the machine's file has it.
TEST_F(WhatThePageKeeps, LeavesKey4AsTheFileHasItWhenThePageOffersIt)
{
    page.control.SeiteUmschalten(false);
    EXPECT_EQ(kept().aufbau.ZugriffsStufe, 5);
    EXPECT_FALSE(kept().fußzeile.Tasten[4].Benutzt);
    EXPECT_EQ(kept().fußzeile.Tasten[4].Bild, "");
    EXPECT_TRUE(kept().fußzeile.Tasten[10].Benutzt);
}

struct KeptKey {
    std::int16_t key;
    bool used;
    const char* picture;
};

// Releasing goes by the table, so it follows servo and page even where the footer does not answer.
TEST_F(WhatThePageKeeps, FollowsServoAndPageWithoutAFooter)
{
    const auto expectKept = [&](const std::vector<KeptKey>& keys) {
        for (const auto& [key, used, picture] : keys) {
            EXPECT_EQ(kept().fußzeile.Tasten[key].Benutzt, used) << key;
            EXPECT_EQ(kept().fußzeile.Tasten[key].Bild, picture) << key;
        }
    };
    const char* const empty = "Standard\\empty_1280.gif";
    display::GemeinsamerZustand& shared = page.surround.zustand;
    shared.ServoAnzahl = 3;
    shared.AktServo = 2;
    shared.Diag2Servo[2] = true;
    page.failing = true;

    page.control.SeiteUmschalten(false);
    expectKept({{5, true, "Standard\\F_PageUp_1280.gif"}, {6, true, "Standard\\F_PageDown_1280.gif"},
        {7, false, empty}, {8, false, empty}, {10, true, "Servo\\Servo_Diag_1280.gif"}});
    page.control.Fußzeile_TasteClick(10);
    expectKept({{7, true, "Servo\\Servo_Diag1_1280.gif"}, {8, true, "Servo\\Servo_Diag2_1280.gif"},
        {10, true, "Servo\\Servo_1280.gif"}});
    shared.AktServo = 1;
    shared.ServoAnzahl = 1;
    page.control.Fußzeile_TasteClick(10);
    expectKept({{5, false, empty}, {6, false, empty}, {7, false, empty}, {8, false, empty},
        {10, true, "Servo\\Servo_Diag_1280.gif"}});
}

TEST_F(WhatThePageKeeps, IsAnEmptyPictureForAKeyThatTheMachineDoesNotUse)
{
    page.control.BildShow(-1);
    for (const std::int16_t key : {std::int16_t{1}, std::int16_t{2}, std::int16_t{4}}) {
        EXPECT_FALSE(kept().fußzeile.Tasten[key].Benutzt) << key;
        EXPECT_EQ(kept().fußzeile.Tasten[key].Bild, "Standard\\empty_1280.gif") << key;
    }
}

TEST_F(WhatThePageKeeps, HoldsTheNumberOfTheLanguage)
{
    EXPECT_EQ(kept().wahl.Sprache, 0);
    page.control.SpracheGeandert(2);
    EXPECT_EQ(kept().wahl.Sprache, 2);
}

TEST_F(WhatThePageKeeps, KnowsWhetherTheServoIsAnExternalOne)
{
    EXPECT_FALSE(kept().wahl.ExternerServo);
    page.surround.zustand.AktuelleMaschine = 1;
    auto& file = page.surround.world().profiles["P:\\Parameter\\Program.ini"];
    file["[Machine1] ExtServo1"] = "True";
    page.control.SeiteUmschalten(true);
    EXPECT_TRUE(kept().wahl.ExternerServo);
    file["[Machine1] ExtServo1"] = "False";
    page.control.SeiteUmschalten(true);
    EXPECT_FALSE(kept().wahl.ExternerServo);
}

TEST_F(WhatThePageKeeps, HasNoRequestLeftAfterAMove)
{
    EXPECT_EQ(kept().rollen.Angefordert, 0);
    page.control.ScrollBar_NeuePos(11);
    EXPECT_EQ(kept().rollen.Versatz, 10);
    EXPECT_EQ(kept().rollen.Angefordert, 10);
    EXPECT_EQ(kept().rollen.Anforderungen, 0);
    EXPECT_EQ(kept().rollen.Bedient, 0);
    EXPECT_EQ(kept().rollen.Beschaeftigt, display::falsch);
}

} // namespace
} // namespace servopanel::servo_page::tests

#include "panel/form/fusszeile.h"

#include "fakes.h"

#include "platform/facades/fusszeile.h"

#include <gtest/gtest.h>

#include <QTest>

using namespace servopanel;
using panel::FußzeileChild;

namespace {

constexpr platform::FirstValue place[]{
    {"Left", 0.0F}, {"Top", 13740.0F}, {"Width", 19200.0F}, {"Height", 1620.0F}, {"Visible", true}};
constexpr platform::FormChild form[]{{{"Fußzeile"}, platform::classes::Fußzeile, {}, place}};

class FooterTest : public ::testing::Test {
protected:
    FooterTest() { around_.stage.show(); }
    platform::Fußzeile footer() { return platform::Fußzeile{around_.form().child({"Fußzeile"})}; }
    FußzeileChild& child() { return around_.host->require<FußzeileChild>("Fußzeile"); }
    panel::TouchKey& key(int number) { return child().bar().key(number); }

    servopanel::testing::FakeForm around_{form};
};

} // namespace

TEST_F(FooterTest, AllKeysAreOffAtFirst)
{
    for (int number = 1; number <= 11; ++number) {
        QTest::mouseClick(&key(number), Qt::LeftButton);
        EXPECT_FALSE(key(number).isOn()) << number;
    }
    EXPECT_TRUE(around_.log.empty());
}

TEST_F(FooterTest, AKeyThatIsOnReportsItsNumber)
{
    footer().Freigabe(4, true);
    QTest::mouseClick(&key(4), Qt::LeftButton);
    EXPECT_EQ(around_.log, (std::vector<std::string>{"Fußzeile.TasteClick 4"}));
    footer().Freigabe(4, false);
    QTest::mouseClick(&key(4), Qt::LeftButton);
    EXPECT_EQ(around_.log.size(), 1U);
}

TEST_F(FooterTest, TheTextComesByNumberAndFollowsTheLanguage)
{
    around_.services.texts["Standard.1101"] = "Übersicht";
    footer().TextNummer(1, 1101);
    EXPECT_EQ(key(1).text(), "Übersicht");
    around_.services.texts["Standard.1101"] = "Overview";
    around_.host->languageChanged();
    EXPECT_EQ(key(1).text(), "Overview");
    footer().TextNummer(1, 10000);
    EXPECT_EQ(key(1).text(), "");
}

TEST_F(FooterTest, ThePictureComesByNameAndAnInvisibleOneIsNone)
{
    QImage seen{96, 64, QImage::Format_ARGB32};
    seen.fill(Qt::transparent);
    around_.services.pictures["Standard\\empty_1280.gif"] = seen;
    footer().Bild(5, "Standard\\empty_1280.gif");
    EXPECT_TRUE(key(5).picture().isNull());
    seen.setPixelColor(10, 10, Qt::black);
    around_.services.pictures["Standard\\F_Exit_1280.gif"] = seen;
    footer().Bild(5, "Standard\\F_Exit_1280.gif");
    EXPECT_FALSE(key(5).picture().isNull());
}

TEST_F(FooterTest, TheSettingOfAKeyIsItsColour)
{
    EXPECT_EQ(footer().Einstellung(7), 0xC0C0C0);
    footer().Farbe(7, 65280);
    EXPECT_EQ(footer().Einstellung(7), 65280);
}

TEST_F(FooterTest, AColouredKeyLooksDifferent)
{
    footer().Freigabe(7, true);
    const QImage normal = key(7).grab().toImage();
    footer().Farbe(7, 65280);
    EXPECT_NE(key(7).grab().toImage(), normal);
    footer().Farbe(7, 0xC0C0C0);
    EXPECT_EQ(key(7).grab().toImage(), normal);
}

TEST_F(FooterTest, KeysFillTheWidthWithoutOverlap)
{
    for (int number = 1; number < 11; ++number)
        EXPECT_LT(key(number).geometry().right(), key(number + 1).geometry().left()) << number;
    EXPECT_LE(key(1).geometry().left(), 8);
    EXPECT_GE(key(11).geometry().right(), 1271);
    EXPECT_FALSE(key(12).isVisible());
}

TEST_F(FooterTest, Key12AppearsWhenItIsNeededAndEscapeStaysAtTheEdge)
{
    footer().Freigabe(12, true);
    EXPECT_TRUE(key(12).isVisible());
    EXPECT_LT(key(12).geometry().right(), key(11).geometry().left());
    EXPECT_LT(key(10).geometry().right(), key(12).geometry().left());
}

TEST_F(FooterTest, TheHardwareKeyHasNoButtonAndIsOn)
{
    footer().TextNummer(31, 10000);
    child().press(31);
    EXPECT_EQ(around_.log, (std::vector<std::string>{"Fußzeile.TasteClick 31"}));
}

TEST_F(FooterTest, DriveByCodeRaisesNothing)
{
    for (std::uint8_t number = 1; number <= 11; ++number) {
        footer().Freigabe(number, true);
        footer().TextNummer(number, 1101);
        footer().Farbe(number, 65280);
        footer().Bild(number, "x");
    }
    EXPECT_TRUE(around_.log.empty());
}

TEST_F(FooterTest, AKeyOfTheKeyboardShowsOnTheScreenToo)
{
    footer().Freigabe(4, true);
    child().pressElsewhere(4);
    EXPECT_TRUE(key(4).isDown());
    EXPECT_EQ(around_.log, (std::vector<std::string>{"Fußzeile.TasteClick 4"}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !key(4).isDown(); }));
    // One that is off shows nothing, and the hardware key has no place on the screen.
    child().pressElsewhere(5);
    EXPECT_FALSE(key(5).isDown());
    child().pressElsewhere(FußzeileChild::hardwareKey);
    EXPECT_EQ(around_.log.back(), "Fußzeile.TasteClick 31");
}

// In grey it is told from others by its frame.
TEST_F(FooterTest, AnActiveKeyHasAFrame)
{
    footer().Freigabe(7, true);
    const auto edge = [&] {
        const QImage grey = key(7).grab().toImage().convertToFormat(QImage::Format_Grayscale8);
        return qGray(grey.pixel(grey.width() / 2, 2));
    };
    const int before = edge();
    footer().Farbe(7, 0x00FF00);
    EXPECT_LT(edge(), before - 80);
    footer().Farbe(7, 0xC0C0C0);
    EXPECT_EQ(edge(), before);
}

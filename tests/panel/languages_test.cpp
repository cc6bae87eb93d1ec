// Languages of a project: texts, direction, fonts, and what happens when one is chosen at the running panel.
#include "panel/form/header.h"
#include "panel/form/label.h"
#include "panel/form/vws_index.h"
#include "panel/look/language_look.h"
#include "panel/runtime/languages.h"
#include "platform/ids.h"
#include "support/standard_project.h"
#include "test_project.h"

#include <gtest/gtest.h>

using namespace servopanel;
using basic::Variant;
using panel::Operator;
using panel::Panel;
using servopanel::testing::TestProject;

namespace {

constexpr std::string_view rightToLeftVariable = "Ch-1.param_client<.arabisch>";
constexpr int english = 1;
constexpr int arabic = 2;
constexpr int chinese = 3;

// The standard project with two more languages.
class LanguagesTest : public ::testing::Test {
protected:
    LanguagesTest()
    {
        languages(
            R"({"number": 1, "code": "en", "name": "English"}, {"number": 2, "code": "ar", "name": "العربية"},
                     {"number": 3, "code": "zh", "name": "中文"})");
        project_.write("Texts/ar.txt", "Servo.M1.Servo3.1 = شد الشريط;mm\nServo.M1.Servo3.61 = شد\n");
        project_.write("Texts/zh.txt", "Servo.M1.Servo3.1 = 张力；mm\n");
    }
    void languages(const std::string& entries)
    {
        std::ifstream in{project_.file("project.json")};
        std::string text{std::istreambuf_iterator<char>{in}, {}};
        const std::size_t begin = text.find("\"languages\": [");
        text.replace(begin, text.find("],", begin) - begin, "\"languages\": [" + entries);
        project_.write("project.json", text);
    }
    void open(const std::string& language = "en")
    {
        panel::PanelSettings settings = project_.settings();
        settings.language = language;
        panel_ = std::make_unique<Panel>(settings);
        reader_ = std::make_unique<servopanel::testing::MessageReader>(*panel_);
        panel_->window().show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel_->window()));
        panel_->openServo();
        hands_ = std::make_unique<Operator>(*panel_);
    }
    void openFirstServo(const std::string& language = "en")
    {
        open(language);
        hands_->menuKey(1);
        ASSERT_EQ(panel_->shownPart()->className(), "ServoMain");
    }
    panel::Child& child(std::string_view name, std::int16_t index)
    {
        return panel_->shownPart()->require<panel::Child>(name, index);
    }
    panel::TextView& text(std::string_view name, std::int16_t index)
    {
        return dynamic_cast<panel::TextView&>(child(name, index).view());
    }
    std::string shown(std::string_view name, std::int16_t index)
    {
        return text(name, index).text().toStdString();
    }
    bool isReported(const std::string& part)
    {
        for (const auto& entry : panel_->errors().entries())
            if (entry.text.contains(QString::fromStdString(part))) return true;
        return false;
    }
    Variant isRightToLeft() { return *panel_->variables().find(rightToLeftVariable); }

    TestProject project_{servopanel::testing::standardProject};
    std::unique_ptr<Panel> panel_;
    std::unique_ptr<servopanel::testing::MessageReader> reader_;
    std::unique_ptr<Operator> hands_;
};

} // namespace

TEST_F(LanguagesTest, TheTextsOfThePageFollowTheChoice)
{
    openFirstServo();
    EXPECT_EQ(shown("BeschriftungL", 1), "Start");
    hands_->language(arabic);
    EXPECT_EQ(shown("BeschriftungL", 1), "شد");
    EXPECT_EQ(shown("BeschriftungL2", 1), "الشريط");
    EXPECT_EQ(shown("EinheitL", 1), "mm");
    hands_->language(chinese);
    EXPECT_EQ(shown("BeschriftungL", 1), "张力");
    EXPECT_EQ(shown("EinheitL", 1), "mm");
    hands_->language(english);
    EXPECT_EQ(shown("BeschriftungL", 1), "Start");
}

// The machine of this project has fewer servos than the menu has keys: it cannot even be scrolled.
TEST_F(LanguagesTest, TheMenuComesBackInTheLanguageThatWasChosenOnAPage)
{
    project_.write("Texts/zh.txt", "Servo.M1.Servo3.0 = 送料\n");
    openFirstServo();
    hands_->language(chinese);
    hands_->footerKey(11);
    ASSERT_EQ(panel_->shownPart()->className(), "ServoMenu");
    EXPECT_EQ(shown("Beschriftung", 1), "送料");
    hands_->language(english);
    EXPECT_EQ(shown("Beschriftung", 1), "Feeder");
}

TEST_F(LanguagesTest, AMenuInTheRightLanguageIsToldNoOther)
{
    openFirstServo();
    hands_->language(chinese);
    hands_->language(english);
    std::vector<std::string> log;
    dynamic_cast<panel::HeaderChild&>(*panel_->servo()->find("Header"))
        .setRaise([&](std::string_view event, auto) {
            log.emplace_back(event);
            return true;
        });
    hands_->footerKey(11);
    EXPECT_TRUE(log.empty());
}

TEST_F(LanguagesTest, TheDirectionFollowsOnTheScreenAndInTheVariable)
{
    openFirstServo();
    EXPECT_EQ(isRightToLeft(), Variant{false});
    hands_->language(arabic);
    EXPECT_EQ(isRightToLeft(), Variant{true});
    EXPECT_TRUE(panel_->window().stage().isRightToLeft());
    EXPECT_TRUE(text("BeschriftungL", 1).isRightToLeft());
    hands_->language(chinese);
    EXPECT_EQ(isRightToLeft(), Variant{false});
    EXPECT_FALSE(text("BeschriftungL", 1).isRightToLeft());
}

TEST_F(LanguagesTest, APanelThatStartsInArabicTellsTheLibrary)
{
    openFirstServo("ar");
    EXPECT_EQ(isRightToLeft(), Variant{true});
    EXPECT_EQ(child("BeschriftungL", 1).get(platform::names::Alignment, {}), Variant{std::int16_t{3}});
}

// A text on the screen looks the same however the panel came to its language.
TEST_F(LanguagesTest, TextsLookTheSameAfterAChoiceAsAfterAStart)
{
    openFirstServo("ar");
    const QImage started = text("BeschriftungL", 1).grab().toImage();
    hands_->language(english);
    const QImage chosenEnglish = text("BeschriftungL", 1).grab().toImage();
    EXPECT_EQ(child("BeschriftungL", 1).get(platform::names::Alignment, {}), Variant{std::int16_t{3}});
    openFirstServo("en");
    EXPECT_EQ(text("BeschriftungL", 1).grab().toImage(), chosenEnglish);
    hands_->language(arabic);
    EXPECT_EQ(child("BeschriftungL", 1).get(platform::names::Alignment, {}), Variant{std::int16_t{0}});
    EXPECT_EQ(text("BeschriftungL", 1).grab().toImage(), started);
}

TEST_F(LanguagesTest, ValuesStayAsTheyAre)
{
    openFirstServo();
    const QImage before = text("SollwertL", 1).grab().toImage();
    hands_->language(arabic);
    EXPECT_EQ(text("SollwertL", 1).grab().toImage(), before);
    EXPECT_EQ(child("SollwertL", 1).get(platform::ids::VWSVarIn::Wert, {}), Variant{1.5});
}

TEST_F(LanguagesTest, DigitsOfArabicScriptAreShownAndNeverStored)
{
    languages(R"({"number": 1, "code": "en"}, {"number": 2, "code": "ar", "digits": "arabic-indic"})");
    openFirstServo("ar");
    EXPECT_TRUE(panel::languageLook().arabicIndicDigits);
    hands_->input("SollwertL", 1);
    hands_->type("42.5");
    hands_->ok();
    EXPECT_EQ(shown("SollwertL", 1), "42.5");
    EXPECT_EQ(child("SollwertL", 1).get(platform::ids::VWSVarIn::Wert, {}), Variant{42.5});
}

TEST_F(LanguagesTest, AMissingTextShowsItsKey)
{
    openFirstServo();
    hands_->language(arabic);
    EXPECT_EQ(shown("BeschriftungL", 2), "Servo.M1.Servo3.2");
    EXPECT_EQ(panel_->word(panel::PanelText::Cancel), QStringLiteral("إلغاء"));
    EXPECT_EQ(panel_->text("Standard.1101"), "Standard.1101");
}

TEST_F(LanguagesTest, AMissingTextFileIsReportedByName)
{
    project_.remove("Texts/zh.txt");
    openFirstServo("zh");
    EXPECT_TRUE(isReported("zh.txt"));
    EXPECT_EQ(shown("BeschriftungL", 1), "Servo.M1.Servo3.1");
}

TEST_F(LanguagesTest, ATextFileInAnotherEncodingIsReportedWithItsLine)
{
    project_.write("Texts/zh.txt", "Servo.M1.Servo3.1 = L\xE4nge;mm\n");
    openFirstServo("zh");
    EXPECT_TRUE(isReported("zh.txt: line 1: is not in UTF-8"));
    EXPECT_EQ(shown("BeschriftungL", 1), "Länge");
}

TEST_F(LanguagesTest, AMissingFontIsReportedWithItsLanguage)
{
    languages(R"({"number": 1, "code": "en", "font": "No Such Family"}, {"number": 2, "code": "ar"})");
    openFirstServo();
    EXPECT_TRUE(isReported("language \"en\" (en): font \"No Such Family\": is not installed"));
    EXPECT_EQ(shown("BeschriftungL", 1), "Start");
}

TEST_F(LanguagesTest, AFontWithoutTheLettersIsReported)
{
    languages(R"({"number": 1, "code": "en"}, {"number": 3, "code": "zh", "font": "DejaVu Sans"})");
    openFirstServo();
    EXPECT_TRUE(isReported("language \"zh\" (zh): font \"DejaVu Sans\": has no letter U+529B"));
}

TEST_F(LanguagesTest, TheFontsOfTheDemoAreInstalled)
{
    openFirstServo();
    EXPECT_FALSE(isReported("is not installed"));
    EXPECT_FALSE(isReported("has no letter"));
}

// What the library copies to the captions of the servo's picture.
TEST_F(LanguagesTest, TheLibraryIsGivenTheFontOfTheLanguage)
{
    openFirstServo();
    hands_->language(chinese);
    EXPECT_EQ(
        child("ParaBeschriftung", 1).get(platform::names::FontName, {}), Variant{"WenQuanYi Micro Hei"});
    EXPECT_EQ(child("ParaBeschriftung", 1).get(platform::names::FontCharset, {}), Variant{std::int16_t{134}});
    hands_->language(arabic);
    EXPECT_EQ(child("ParaBeschriftung", 1).get(platform::names::FontName, {}), Variant{"DejaVu Sans"});
    EXPECT_EQ(child("ParaBeschriftung", 1).get(platform::names::FontCharset, {}), Variant{std::int16_t{178}});
}

TEST_F(LanguagesTest, ATextOfTenThousandCharactersStaysWithinItsPlace)
{
    project_.write("Texts/zh.txt",
        "Servo.M1.Servo3.1 = " + std::string(10'000, 'x') + ";mm\nServo.M1.Servo3.61 = "
            + std::string(10'000, 'x') + "\nServo.M1.Servo3.0 = " + std::string(10'000, 'x') + "\n");
    project_.write("Servo/Servo_M1_3.ini", "[Parameter]\r\n1Col=sw\r\n1Ali=0\r\n1X=1500\r\n1Y=300\r\n");
    openFirstServo("zh");
    EXPECT_TRUE(text("BeschriftungL", 1).isElided());
    EXPECT_FALSE(text("EinheitL", 1).isElided());
    const panel::TextView& caption = text("ParaBeschriftung", 1);
    EXPECT_TRUE(caption.parentWidget()->rect().contains(caption.geometry()));
    EXPECT_TRUE(caption.isElided());
}

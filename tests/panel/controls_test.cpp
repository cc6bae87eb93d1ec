// What single controls show of their properties.
#include "fakes.h"
#include "support/error_number.h"

#include "panel/form/eingabemaske.h"
#include "panel/form/ini_eingabe.h"
#include "panel/form/label.h"
#include "panel/form/schalter.h"
#include "panel/form/scroll_bar.h"
#include "panel/form/timer_child.h"
#include "panel/form/vws_index.h"
#include "panel/form/vws_var.h"
#include "platform/facades/eingabemaske.h"
#include "platform/facades/ini_eingabe.h"
#include "platform/facades/istwert.h"
#include "platform/facades/schalter.h"
#include "platform/facades/scroll_bar.h"
#include "platform/facades/sollwert.h"
#include "platform/facades/sprachtext.h"
#include "platform/facades/textanzeige.h"

#include <gtest/gtest.h>

#include <QTest>

using namespace servopanel;
using basic::Variant;
namespace classes = platform::classes;
namespace names = platform::names;

namespace {

constexpr platform::FirstValue place[]{
    {"Left", 150.0F}, {"Top", 150.0F}, {"Width", 2550.0F}, {"Height", 540.0F}, {"Visible", true}};
constexpr platform::FirstValue maskPlace[]{
    {"Left", 3210.0F}, {"Top", 2235.0F}, {"Width", 5400.0F}, {"Height", 6900.0F}};
constexpr platform::FirstValue labelValues[]{
    {"AutoSize", true}, {"Font.Size", std::int16_t{10}}, {"Visible", true}};
constexpr platform::FirstValue timerValues[]{{"Interval", std::int16_t{20}}, {"Enabled", false}};
constexpr platform::FormChild form[]{
    {{"Timer"}, classes::Timer, {}, timerValues},
    {{"VWLanguage"}, classes::VWSLanguage, {}, place},
    {{"Pseudo"}, classes::VWSVarIn, {}, place},
    {{"Text"}, classes::VWSIndex, {}, place},
    {{"Label"}, classes::Label, {}, labelValues},
    {{"Bild"}, classes::PictureBox, {}, place},
    {{"IstWert"}, classes::VWSVarOut, {}, place},
    {{"ScrollBar"}, classes::ScrollBar, {}, place},
    {{"BeschriftungL", 5}, classes::VWSIndex, {}, place},
    {{"EinheitL", 5}, classes::VWSIndex, {}, place},
    {{"ZeichnungL", 43}, classes::VWSIndex, {}, place},
    {{"BeschriftungL", 41}, classes::VWSIndex, {}, place},
    {{"SollwertL", 5}, classes::VWSVarIn, {}, place},
    {{"SchalterL", 31}, classes::Schalter, {}, place},
    {{"Eingabemaske"}, classes::Eingabemaske, {}, maskPlace},
    {{"IniEingabe"}, classes::IniEingabe, {}, maskPlace},
};

class ControlsTest : public ::testing::Test {
protected:
    ControlsTest() { around_.stage.show(); }

    platform::ControlRef control(std::string_view name, std::int16_t index = platform::ChildId::noIndex)
    {
        return around_.form().child({name, index});
    }
    template <class C>
    C& child(std::string_view name, std::int16_t index = platform::ChildId::noIndex)
    {
        return around_.host->require<C>(name, index);
    }
    std::vector<std::string>& log() { return around_.log; }

    servopanel::testing::FakeForm around_{form};
};

} // namespace

TEST_F(ControlsTest, ATextWithAnAtSignIsALanguageTextAndFollowsTheLanguage)
{
    around_.services.texts["Servo.M1.Servo3.0"] = "Vorzug";
    platform::Textanzeige{control("Text")}.Text("@Servo.M1.Servo3.0");
    EXPECT_EQ(child<panel::VWSIndex>("Text").shown(), "Vorzug");
    EXPECT_EQ(platform::Textanzeige{control("Text")}.Text(), "@Servo.M1.Servo3.0");
    around_.services.texts["Servo.M1.Servo3.0"] = "Infeed";
    around_.host->languageChanged();
    EXPECT_EQ(child<panel::VWSIndex>("Text").shown(), "Infeed");
    platform::Textanzeige{control("Text")}.Text("007");
    EXPECT_EQ(child<panel::VWSIndex>("Text").shown(), "007");
}

TEST_F(ControlsTest, AFontClassSetsTheSizeInPoints)
{
    control("Text")->put(names::FontClass, "LSU12");
    EXPECT_EQ(control("Text")->get(names::FontSize), Variant{12.0F});
    EXPECT_EQ(control("Text")->get(names::FontClass), Variant{"LSU12"});
    const float wide = around_.form().textWidth({"Text"}, "WWWWWWWWWW");
    control("Text")->put(names::FontClass, "LSU8");
    EXPECT_LT(around_.form().textWidth({"Text"}, "WWWWWWWWWW"), wide);
}

// The library mirrors an alignment once, when it starts a control; the panel's direction may change after that.
TEST_F(ControlsTest, AlignmentsFollowThePanelsDirection)
{
    platform::Textanzeige{control("Text")}.Text("|");
    const auto look = [&](std::int16_t alignment) {
        control("Text")->put(names::Alignment, alignment);
        EXPECT_EQ(control("Text")->get(names::Alignment), Variant{alignment});
        return child<panel::VWSIndex>("Text").view().grab().toImage();
    };
    const QImage left = look(0);
    const QImage right = look(1);
    EXPECT_NE(left, right);
    EXPECT_EQ(look(3), left);
    EXPECT_EQ(look(4), right);
    EXPECT_EQ(look(5), look(2));
    around_.stage.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(look(0), right);
    EXPECT_EQ(look(1), left);
    EXPECT_EQ(look(3), right);
    EXPECT_EQ(look(4), left);
    EXPECT_EQ(look(5), look(2));
}

TEST_F(ControlsTest, AnAutoSizeLabelIsAsLargeAsItsText)
{
    control("Label")->put(names::Caption, "kW");
    const float narrow = basic::toSingle(control("Label")->get(names::Width));
    control("Label")->put(names::Caption, "a much longer caption");
    const float wide = basic::toSingle(control("Label")->get(names::Width));
    EXPECT_GT(narrow, 0.0F);
    EXPECT_GT(wide, narrow);
    EXPECT_GE(wide, around_.form().textWidth({"Label"}, "a much longer caption"));
}

TEST_F(ControlsTest, LanguageTextsComeFromThePanel)
{
    around_.services.texts["Standard.15000"] = "Locked";
    platform::Sprachtext language{control("VWLanguage")};
    EXPECT_EQ(language.Text("Standard.15000"), "Locked");
    EXPECT_EQ(language.Text("unknown"), "");
    EXPECT_EQ(language.FontName(), Variant{"DejaVu Sans"});
    EXPECT_EQ(language.FontWeight(), Variant{std::int16_t{400}});
}

TEST_F(ControlsTest, AnInputKeepsTheTypeOfItsValueAndMirrorsIt)
{
    platform::Sollwert input{control("SollwertL", 5)};
    input.VariablenName("Ch-1.intern_v<.l2_05>");
    input.Wert(std::int16_t{7});
    EXPECT_EQ(input.Wert(), Variant{std::int16_t{7}});
    EXPECT_EQ(around_.services.mirrored["Ch-1.intern_v<.l2_05>"], Variant{std::int16_t{7}});
    EXPECT_TRUE(log().empty());
}

TEST_F(ControlsTest, NumbersAreShownWithAPointWhateverTheLocale)
{
    EXPECT_EQ(panel::valueText(Variant{1234.5}), "1234.5");
    EXPECT_EQ(panel::valueText(Variant{std::int16_t{-3}}), "-3");
    EXPECT_EQ(panel::valueText(Variant{"text"}), "text");
    EXPECT_EQ(panel::valueText(basic::doubles({1, 2})), "?");
}

TEST_F(ControlsTest, AnActualValueKeepsTheDecimalsThatItHadLately)
{
    platform::Istwert display{control("IstWert")};
    const auto shown = [&] {
        return static_cast<panel::TextView&>(child<panel::VWSVarOut>("IstWert").view()).text();
    };
    display.Wert(Variant{12.4});
    EXPECT_EQ(shown(), "12.4");
    display.Wert(Variant{12.0});
    EXPECT_EQ(shown(), "12.0");
    EXPECT_EQ(control("IstWert")->get(platform::ids::VWSVarOut::Wert), Variant{12.0});
    child<panel::VWSVarOut>("IstWert").startAnew();
    display.Wert(Variant{13.0});
    EXPECT_EQ(shown(), "13");
}

TEST_F(ControlsTest, ATouchOnAnInputIsDeliveredOnceWithItsPlaceInTwips)
{
    QTest::mousePress(&child<panel::VWSVarIn>("SollwertL", 5).view(), Qt::LeftButton, {}, {20, 10});
    EXPECT_EQ(log(), (std::vector<std::string>{"SollwertL(5).MouseDown 1 0 300 150"}));
}

TEST_F(ControlsTest, ADisabledInputGetsNoTouch)
{
    platform::Sollwert{control("SollwertL", 5)}.Enabled(false);
    QTest::mouseClick(&child<panel::VWSVarIn>("SollwertL", 5).view(), Qt::LeftButton);
    platform::Schalter{control("SchalterL", 31)}.Freigabe(false);
    QTest::mouseClick(&child<panel::SchalterChild>("SchalterL", 31).view(), Qt::LeftButton);
    EXPECT_TRUE(log().empty());
    platform::Sollwert{control("SollwertL", 5)}.Enabled(true);
    QTest::mouseClick(&child<panel::VWSVarIn>("SollwertL", 5).view(), Qt::LeftButton);
    platform::Schalter{control("SchalterL", 31)}.Freigabe(true);
    QTest::mouseClick(&child<panel::SchalterChild>("SchalterL", 31).view(), Qt::LeftButton);
    ASSERT_FALSE(log().empty());
    EXPECT_TRUE(log().front().starts_with("SollwertL(5).MouseDown")) << log().front();
    EXPECT_EQ(log().back(), "SchalterL(31).SchalterGedrückt");
}

TEST_F(ControlsTest, ASwitchReportsATouchAndKeepsItsState)
{
    platform::Schalter lever{control("SchalterL", 31)};
    lever.Zustand(std::int32_t{4});
    EXPECT_TRUE(lever.Zustand());
    EXPECT_TRUE(child<panel::SchalterChild>("SchalterL", 31).lever().state());
    QTest::mouseClick(&child<panel::SchalterChild>("SchalterL", 31).view(), Qt::LeftButton);
    EXPECT_EQ(log(), (std::vector<std::string>{"SchalterL(31).SchalterGedrückt"}));
    EXPECT_TRUE(lever.Zustand());
}

TEST_F(ControlsTest, TheScrollBarsPositionIsSetBeforeItReports)
{
    platform::ScrollBar bar{control("ScrollBar")};
    bar.Anzahl(10);
    std::int16_t seen = 0;
    around_.hosted->during = [&] { seen = platform::ScrollBar{control("ScrollBar")}.Position(); };
    QTest::mouseClick(&child<panel::ScrollBarChild>("ScrollBar").scroll().downKey(), Qt::LeftButton);
    EXPECT_EQ(log(), (std::vector<std::string>{"ScrollBar.NeuePos 2"}));
    EXPECT_EQ(seen, 2);
}

TEST_F(ControlsTest, ALockedScrollBarDoesNotMove)
{
    platform::ScrollBar bar{control("ScrollBar")};
    bar.Anzahl(10);
    bar.Gesperrt(true);
    QTest::mouseClick(&child<panel::ScrollBarChild>("ScrollBar").scroll().downKey(), Qt::LeftButton);
    EXPECT_TRUE(log().empty());
    bar.Gesperrt(false);
    bar.Aktiv(true);
    QTest::mouseClick(&child<panel::ScrollBarChild>("ScrollBar").scroll().downKey(), Qt::LeftButton);
    EXPECT_EQ(log().size(), 1U);
}

TEST_F(ControlsTest, TheTimerTicksOnlyWhileItIsEnabled)
{
    QTest::qWait(70);
    EXPECT_TRUE(log().empty());
    control("Timer")->put(names::Enabled, true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return log().size() >= 2; }));
    EXPECT_EQ(log().front(), "Timer.Timer");
    control("Timer")->put(names::Enabled, false);
    log().clear();
    QTest::qWait(70);
    EXPECT_TRUE(log().empty());
}

TEST_F(ControlsTest, TheTimerRestsWhileAMessageIsOpenOrAProcedureRuns)
{
    control("Timer")->put(names::Enabled, true);
    around_.gate.close();
    QTest::qWait(70);
    EXPECT_TRUE(log().empty());
    around_.gate.open();
    {
        const panel::EventGate::Entry entry{around_.gate};
        QTest::qWait(70);
        EXPECT_TRUE(log().empty());
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return !log().empty(); }));
}

namespace {

class MaskTest : public ControlsTest {
protected:
    void open(const platform::ControlRef& target)
    {
        platform::Eingabemaske mask{control("Eingabemaske")};
        mask.Ziel(target);
        mask.Offen(true);
        mask.Visible(true);
    }
    void tap(const QString& label) { QTest::mouseClick(mask().pad().key(label), Qt::LeftButton); }
    panel::InputMask& mask() { return child<panel::EingabemaskeChild>("Eingabemaske").mask(); }
    platform::Sollwert input() { return platform::Sollwert{control("SollwertL", 5)}; }

    MaskTest()
    {
        input().VariablenName("Ch-1.intern_v<.l2_05>");
        input().Wert(12.5);
        input().Untergrenze("0");
        input().Obergrenze("20");
        platform::Textanzeige{control("BeschriftungL", 5)}.Text("Draw");
        platform::Textanzeige{control("EinheitL", 5)}.Text("%");
    }
};

} // namespace

TEST_F(MaskTest, AChangedValueGoesToTheTargetAndIsReportedBeforeTheEnd)
{
    open(control("SollwertL", 5));
    tap("1");
    tap("5");
    std::vector<Variant> seen;
    around_.hosted->during = [&] { seen.push_back(input().Wert()); };
    QTest::mouseClick(&mask().okKey(), Qt::LeftButton);
    EXPECT_EQ(
        log(), (std::vector<std::string>{"Eingabemaske.EingabeAenderung", "Eingabemaske.Eingabefertig"}));
    EXPECT_EQ(seen, (std::vector<Variant>{15.0, 15.0}));
    EXPECT_EQ(around_.services.mirrored["Ch-1.intern_v<.l2_05>"], Variant{15.0});
    EXPECT_EQ(around_.services.operations.back(), "mask 15");
}

TEST_F(MaskTest, AnUnchangedValueReportsTheEndOnly)
{
    open(control("SollwertL", 5));
    QTest::mouseClick(&mask().okKey(), Qt::LeftButton);
    EXPECT_EQ(log(), (std::vector<std::string>{"Eingabemaske.Eingabefertig"}));
    EXPECT_EQ(input().Wert(), Variant{12.5});
}

TEST_F(MaskTest, CancelReportsTheEndOnlyAndChangesNothing)
{
    open(control("SollwertL", 5));
    tap("7");
    QTest::mouseClick(&mask().cancelKey(), Qt::LeftButton);
    EXPECT_EQ(log(), (std::vector<std::string>{"Eingabemaske.Eingabefertig"}));
    EXPECT_EQ(input().Wert(), Variant{12.5});
    EXPECT_EQ(around_.services.operations.back(), "mask cancel");
}

TEST_F(MaskTest, AValueOutsideTheTargetsLimitsIsRefused)
{
    open(control("SollwertL", 5));
    tap("2");
    tap("1");
    QTest::mouseClick(&mask().okKey(), Qt::LeftButton);
    EXPECT_TRUE(log().empty());
    EXPECT_TRUE(mask().refusing());
    EXPECT_EQ(input().Wert(), Variant{12.5});
}

TEST_F(MaskTest, ALimitThatChangedSinceItOpenedCounts)
{
    open(control("SollwertL", 5));
    tap("9");
    input().Obergrenze("8");
    QTest::mouseClick(&mask().okKey(), Qt::LeftButton);
    EXPECT_TRUE(log().empty());
    EXPECT_TRUE(mask().refusing());
    EXPECT_EQ(input().Wert(), Variant{12.5});
}

TEST_F(MaskTest, ALimitThatIsNoNumberAcceptsNothing)
{
    const Variant before = input().Wert();
    input().Untergrenze("low");
    open(control("SollwertL", 5));
    tap("9");
    QTest::mouseClick(&mask().okKey(), Qt::LeftButton);
    EXPECT_TRUE(mask().refusing());
    EXPECT_EQ(input().Wert(), before);
}

TEST_F(MaskTest, MissingLimitsDoNotLimit)
{
    input().Obergrenze("");
    input().Untergrenze("");
    open(control("SollwertL", 5));
    for (const char* key : {"9", "9", "9", "±"})
        tap(key);
    QTest::mouseClick(&mask().okKey(), Qt::LeftButton);
    EXPECT_EQ(input().Wert(), Variant{-999.0});
}

TEST_F(MaskTest, OpeningAndClosingByCodeRaisesNothing)
{
    open(control("SollwertL", 5));
    platform::Eingabemaske{control("Eingabemaske")}.Offen(false);
    platform::Eingabemaske{control("Eingabemaske")}.Visible(false);
    EXPECT_TRUE(log().empty());
    EXPECT_FALSE(platform::Eingabemaske{control("Eingabemaske")}.Offen());
}

TEST_F(MaskTest, ATargetThatIsNoControlIsError13)
{
    EXPECT_EQ(servopanel::testing::errorNumber([&] {
        return control("Eingabemaske")
                   ->putRef(platform::ids::Eingabemaske::Ziel, {}, Variant{basic::ObjectRef{}}),
               0;
    }),
        13);
}

TEST_F(MaskTest, ADrawingNumberPartHasTheNumbersCaption)
{
    platform::Textanzeige{control("BeschriftungL", 41)}.Text("Drawing");
    platform::Textanzeige{control("ZeichnungL", 43)}.Hintergrund(65280);
    platform::Sollwert{control("Pseudo")}.Wert(11.0);
    const QImage without = [&] {
        open(control("SollwertL", 5));
        return mask().grab({0, 0, 360, 30}).toImage();
    }();
    open(control("Pseudo"));
    EXPECT_EQ(mask().shown().trimmed(), "11");
    EXPECT_NE(mask().grab({0, 0, 360, 30}).toImage(), without);
}

TEST_F(ControlsTest, TheEditorHandsOverNewValuesAndCancelKeepsTheOldOnes)
{
    platform::IniEingabe editor{control("IniEingabe")};
    editor.Pass(3);
    editor.Max(10);
    editor.Min(1);
    editor.Offen(true);
    editor.Visible(true);
    panel::DefinitionEditor& view = child<panel::IniEingabeChild>("IniEingabe").editor();
    QTest::mouseClick(view.pad().key("5"), Qt::LeftButton);
    QTest::mouseClick(&view.cancelKey(), Qt::LeftButton);
    EXPECT_EQ(log(), (std::vector<std::string>{"IniEingabe.EingabeFertig"}));
    EXPECT_EQ(editor.Min(), 1);

    QTest::mouseClick(&view.okKey(), Qt::LeftButton);
    EXPECT_EQ(log().size(), 2U);
    EXPECT_EQ(editor.Min(), 5);
    EXPECT_EQ(around_.services.operations.back(), "ini 5 10 3");
}

TEST_F(ControlsTest, APictureThatIsNoneOfThePanelsIsError13)
{
    EXPECT_EQ(
        servopanel::testing::errorNumber([&] { return control("Bild")->put(names::Picture, "file.gif"), 0; }),
        13);
    control("Bild")->put(names::Picture, basic::ObjectRef{});
    const auto picture = std::make_shared<panel::PanelPicture>(QImage{4, 4, QImage::Format_RGB32}, "a.gif");
    control("Bild")->put(names::Picture, picture);
    EXPECT_EQ(control("Bild")->get(names::Picture), Variant{picture});
}

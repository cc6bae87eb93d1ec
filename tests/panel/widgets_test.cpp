// Sheets, switches, keys and bars: finger sizes, long texts, both directions of writing.
#include "panel/look/touch_size.h"
#include "panel/widgets/definition_editor.h"
#include "panel/widgets/footer_bar.h"
#include "panel/widgets/input_mask.h"
#include "panel/widgets/message_sheet.h"
#include "panel/widgets/scroll_view.h"
#include "panel/widgets/switch_view.h"

#include <gtest/gtest.h>

#include <QTest>

using namespace servopanel::panel;

namespace {

QString english(PanelText text) { return panelWord(text, "en"); }

class WidgetsTest : public ::testing::TestWithParam<int> {
protected:
    WidgetsTest()
    {
        stage_.resize(GetParam(), GetParam() == 1280 ? 1024 : GetParam() * 3 / 4);
        stage_.show();
    }
    // A length of the design on this screen, pixels.
    int across(int twips) const { return twips * stage_.width() / 1280 / 15; }
    int down(int twips) const { return twips * stage_.height() / 1024 / 15; }
    void expectFinger(const QWidget& key)
    {
        EXPECT_GE(key.width(), leastTouch(stage_));
        EXPECT_GE(key.height(), leastTouch(stage_));
    }

    QWidget stage_;
};

QList<TouchKey*> keysOf(const QWidget& widget)
{
    QList<TouchKey*> keys;
    for (QObject* each : widget.children()) {
        if (auto* key = dynamic_cast<TouchKey*>(each)) keys.push_back(key);
        if (auto* inner = qobject_cast<QWidget*>(each)) keys += keysOf(*inner);
    }
    return keys;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Screens, WidgetsTest, ::testing::Values(1280, 1024, 800));

TEST_P(WidgetsTest, EveryKeyOfTheMaskIsLargeEnoughForAFinger)
{
    auto* mask = new InputMask{&stage_, english};
    mask->setGeometry(10, 10, across(5400), down(6900));
    mask->start({"Draw", "%", "1", {-2.0, 2.0}});
    mask->show();
    ASSERT_EQ(keysOf(*mask).size(), 18);
    for (const TouchKey* key : keysOf(*mask))
        expectFinger(*key);
}

TEST_P(WidgetsTest, EveryKeyOfTheEditorIsLargeEnoughForAFinger)
{
    auto* editor = new DefinitionEditor{&stage_, english};
    editor->setGeometry(10, 10, across(5400), down(6900));
    editor->start({1, 10, 3});
    editor->show();
    ASSERT_EQ(keysOf(*editor).size(), 21);
    for (const TouchKey* key : keysOf(*editor))
        expectFinger(*key);
}

TEST_P(WidgetsTest, TheEditorsKeysChangeSides)
{
    auto* editor = new DefinitionEditor{&stage_, english};
    editor->setGeometry(10, 10, across(5400), down(6900));
    editor->start({1, 10, 3});
    editor->show();
    EXPECT_EQ(editor->rowKey(DefinitionEditor::Least).text(), "Min");
    EXPECT_EQ(editor->rowKey(DefinitionEditor::Least).value(), "1");
    const QImage row = editor->rowKey(DefinitionEditor::Least).grab().toImage();
    EXPECT_LT(editor->cancelKey().x(), editor->okKey().x());
    stage_.setLayoutDirection(Qt::RightToLeft);
    EXPECT_GT(editor->cancelKey().x(), editor->okKey().x());
    EXPECT_NE(editor->rowKey(DefinitionEditor::Least).grab().toImage(), row);
}

TEST_P(WidgetsTest, AMessageOfTenThousandCharactersLeavesItsKeyOnTheScreen)
{
    for (const QString& text : {QString{10000, u'x'}, QStringLiteral("many words ").repeated(900)}) {
        MessageSheet sheet{&stage_, "Message", text, "OK"};
        sheet.show();
        const QRect key{sheet.okKey().mapTo(&stage_, QPoint{}), sheet.okKey().size()};
        EXPECT_TRUE(stage_.rect().contains(key));
        expectFinger(sheet.okKey());
        EXPECT_TRUE(sheet.pane().bar().isVisible());
        QTest::mouseClick(&sheet.pane().bar().downKey(), Qt::LeftButton);
        EXPECT_GT(sheet.pane().offset(), 0);
    }
    MessageSheet brief{&stage_, "Message", "Inputs are locked.", "OK"};
    brief.show();
    EXPECT_FALSE(brief.pane().bar().isVisible());
}

TEST_P(WidgetsTest, ASwitchMirrorsItsPositionsAndKeepsItsWord)
{
    auto* lever = new SwitchView{&stage_, english};
    lever->setGeometry(10, 10, across(2550), down(540));
    lever->show();
    const QRect off = lever->slider();
    lever->setState(true);
    const QRect on = lever->slider();
    EXPECT_LT(off.right(), on.left());
    stage_.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(lever->slider().left(), off.left());
    lever->setState(false);
    EXPECT_EQ(lever->slider().left(), on.left());
}

TEST_P(WidgetsTest, ASwitchThatMayNotBeUsedHasALock)
{
    auto* lever = new SwitchView{&stage_, english};
    lever->setGeometry(10, 10, across(2550), down(540));
    lever->setFree(false);
    EXPECT_TRUE(lever->marks().locked);
    lever->setMarks({true, false, true});
    EXPECT_EQ(lever->marks(), (ValueMarks{true, true, true}));
    lever->setFree(true);
    EXPECT_FALSE(lever->marks().locked);
}

TEST_P(WidgetsTest, TheSliderOfALongListCanStillBeHeld)
{
    auto* scroll = new ScrollView{&stage_};
    scroll->setGeometry(0, 0, across(810), down(9765));
    scroll->show();
    scroll->setRange(1, 5000);
    expectFinger(scroll->upKey());
    EXPECT_GE(scroll->slider().height(), leastTouch(stage_));
    scroll->setRange(650, 651);
    EXPECT_LT(scroll->slider().height(), scroll->height());
}

TEST_P(WidgetsTest, FooterKeysAreLargeEnoughAndStayAboveTheirHardwareKeys)
{
    auto* footer = new FooterBar{&stage_};
    footer->setGeometry(0, down(13740), stage_.width(), down(1620));
    footer->show();
    for (int number = 1; number <= 11; ++number)
        expectFinger(footer->key(number));
    const int first = footer->key(1).x();
    stage_.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(footer->key(1).x(), first);
}

TEST_P(WidgetsTest, AKeySwitchedOffUnderTheFingerDoesNotAct)
{
    int actions = 0;
    auto* key = new TouchKey{&stage_};
    key->setGeometry(10, 10, 80, 60);
    key->setAction([&] { ++actions; });
    key->show();
    QTest::mousePress(key, Qt::LeftButton);
    key->setOn(false);
    key->setOn(true);
    QTest::mouseRelease(key, Qt::LeftButton);
    EXPECT_EQ(actions, 0);
}

TEST_P(WidgetsTest, AHeldStepKeyGoesFasterAfterAWhile)
{
    auto* mask = new InputMask{&stage_, english};
    mask->setGeometry(10, 10, across(5400), down(6900));
    mask->start({"Speed", "", "100", {0.0, 1000.0}});
    mask->show();
    TouchKey* up = mask->pad().key("▲");
    QTest::mousePress(up, Qt::LeftButton);
    EXPECT_EQ(mask->shown(), "101");
    ASSERT_TRUE(QTest::qWaitFor([&] { return up->repeats() >= 12; }, 20'000));
    QTest::mouseRelease(up, Qt::LeftButton);
    EXPECT_GE(mask->shown().toInt(), 110 + 20);
}

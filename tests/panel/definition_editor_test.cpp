#include "panel/widgets/definition_editor.h"

#include <gtest/gtest.h>

#include <QTest>

#include <optional>

using namespace servopanel::panel;

namespace {

class DefinitionEditorTest : public ::testing::Test {
protected:
    DefinitionEditorTest()
    {
        stage_.resize(1280, 1024);
        editor_.setGeometry(100, 100, 360, 460);
        editor_.setHandlers(
            [this](const Definition& definition) { accepted_ = definition; }, [this] { cancelled_ = true; });
        stage_.show();
        editor_.show();
        editor_.start({1, 10, 3});
    }
    void type(const QString& keys)
    {
        for (const QChar& key : keys)
            QTest::mouseClick(editor_.pad().key(QString{key}), Qt::LeftButton);
    }
    void choose(DefinitionEditor::Row row) { QTest::mouseClick(&editor_.rowKey(row), Qt::LeftButton); }
    void ok() { QTest::mouseClick(&editor_.okKey(), Qt::LeftButton); }

    QWidget stage_;
    DefinitionEditor& editor_ =
        *new DefinitionEditor{&stage_, [](PanelText text) { return panelWord(text, "en"); }};
    std::optional<Definition> accepted_;
    bool cancelled_ = false;
};

} // namespace

TEST_F(DefinitionEditorTest, AcceptsAllThreeNumbers)
{
    type("2.5");
    choose(DefinitionEditor::Most);
    type("80");
    choose(DefinitionEditor::Level);
    type("5");
    ok();
    EXPECT_EQ(accepted_, (Definition{2.5, 80, 5}));
}

TEST_F(DefinitionEditorTest, RefusesCrossedLimitsAndSaysSo)
{
    type("11");
    ok();
    EXPECT_FALSE(accepted_.has_value());
    EXPECT_EQ(editor_.remark(), "Min is greater than Max");
    choose(DefinitionEditor::Most);
    type("11");
    ok();
    EXPECT_EQ(accepted_, (Definition{11, 11, 3}));
}

TEST_F(DefinitionEditorTest, RefusesALevelThatIsNone)
{
    choose(DefinitionEditor::Level);
    type("1.5");
    ok();
    EXPECT_FALSE(accepted_.has_value());
    EXPECT_FALSE(editor_.remark().isEmpty());
    type("C");
    type("99999");
    ok();
    EXPECT_FALSE(accepted_.has_value());
}

TEST_F(DefinitionEditorTest, SaysWhyALevelTakesNoMinus)
{
    choose(DefinitionEditor::Level);
    QTest::keyClicks(&editor_, "-");
    EXPECT_EQ(editor_.remark(), "Level: whole number up to 32767");
    QTest::keyClicks(&editor_, "2");
    EXPECT_TRUE(editor_.remark().isEmpty());
    choose(DefinitionEditor::Least);
    QTest::keyClicks(&editor_, "-4");
    EXPECT_TRUE(editor_.remark().isEmpty());
    ok();
    EXPECT_EQ(accepted_, (Definition{-4, 10, 2}));
}

TEST_F(DefinitionEditorTest, RefusesAnEmptyLimit)
{
    type("C");
    ok();
    EXPECT_FALSE(accepted_.has_value());
    EXPECT_EQ(editor_.remark(), "Please enter a number");
}

TEST_F(DefinitionEditorTest, CancelLeavesWithoutADefinition)
{
    type("5");
    QTest::mouseClick(&editor_.cancelKey(), Qt::LeftButton);
    EXPECT_TRUE(cancelled_);
    EXPECT_FALSE(accepted_.has_value());
}

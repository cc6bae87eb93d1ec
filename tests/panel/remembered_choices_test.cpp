// What an operator chose, over restarts and power cuts.
#include "panel/runtime/remembered_choices.h"

#include "support/full_disk.h"
#include "support/standard_project.h"
#include "test_project.h"

#include <gtest/gtest.h>

#include <fstream>

using namespace servopanel;
using panel::Choices;
using panel::RememberedChoices;
using servopanel::testing::TestProject;

namespace {

class RememberedChoicesTest : public ::testing::Test {
protected:
    std::filesystem::path folder() const
    {
        return std::filesystem::path{folder_.path().toStdString()} / "state";
    }
    std::filesystem::path file() const { return folder() / "choices.json"; }
    RememberedChoices remembered(const std::string& project = "/line/project") const
    {
        return {folder(), project};
    }
    void damage(const std::string& content) const
    {
        std::filesystem::create_directories(folder());
        std::ofstream{file(), std::ios::binary} << content;
    }

    QTemporaryDir folder_;
    const Choices chinese{std::int16_t{4}, 1, 3};
};

} // namespace

TEST_F(RememberedChoicesTest, ComeBack)
{
    remembered().save(chinese);
    EXPECT_EQ(remembered().load(), chinese);
}

TEST_F(RememberedChoicesTest, NothingIsRememberedAtFirst)
{
    RememberedChoices first = remembered();
    EXPECT_EQ(first.load(), std::nullopt);
    EXPECT_EQ(first.problem(), "");
}

TEST_F(RememberedChoicesTest, OfAnotherProjectCountForNothing)
{
    remembered().save(chinese);
    EXPECT_EQ(remembered("/other/project").load(), std::nullopt);
}

TEST_F(RememberedChoicesTest, ADamagedFileIsNamedAndReplacedByTheNextChoice)
{
    for (const std::string content : {"", "{\"project\": \"/line/pro", "\x01\x02\x03", "[1, 2]"}) {
        damage(content);
        RememberedChoices damaged = remembered();
        EXPECT_EQ(damaged.load(), std::nullopt) << content;
        EXPECT_NE(damaged.problem().find(file().string()), std::string::npos) << content;
        damaged.save(chinese);
        EXPECT_EQ(remembered().load(), chinese) << content;
    }
}

TEST_F(RememberedChoicesTest, NothingIsWrittenWhenNothingChanged)
{
    RememberedChoices choices = remembered();
    choices.save(chinese);
    std::filesystem::remove(file());
    choices.save(chinese);
    EXPECT_FALSE(std::filesystem::exists(file()));
}

TEST_F(RememberedChoicesTest, AFolderThatCannotBeMadeIsNamed)
{
    std::ofstream{folder()} << "a file stands where the folder should be";
    RememberedChoices choices = remembered();
    choices.save(chinese);
    EXPECT_NE(choices.problem().find(file().string()), std::string::npos);
}

TEST_F(RememberedChoicesTest, AFullDiskIsReportedAndCostsNothing)
{
    remembered().save(chinese);
    const Choices next{std::int16_t{1}, 1, 5};
    for (const rlim_t bytesLeft : {rlim_t{0}, rlim_t{20}}) {
        RememberedChoices choices = remembered();
        {
            const servopanel::testing::FullDisk full{bytesLeft};
            choices.save(next);
        }
        EXPECT_NE(choices.problem().find(file().string()), std::string::npos);
        EXPECT_EQ(remembered().load(), chinese);
        if (bytesLeft == 0) continue;
        choices.save(next);
        EXPECT_EQ(choices.problem(), "");
        EXPECT_EQ(remembered().load(), next);
    }
}

// The panel ends without a word, as in a power cut, and is started again.
TEST_F(RememberedChoicesTest, APanelComesBackToLanguageAndServo)
{
    TestProject project{servopanel::testing::standardProject};
    project.write("Texts/de.txt", "");
    std::ifstream in{project.file("project.json")};
    std::string text{std::istreambuf_iterator<char>{in}, {}};
    text.replace(text.find("\"languages\": ["), 14,
        "\"languages\": [{\"number\": 2, \"code\": \"de\", \"name\": \"Deutsch\"},");
    project.write("project.json", text);
    panel::PanelSettings settings = project.settings();
    settings.state = folder();
    {
        panel::Panel first{settings};
        const servopanel::testing::MessageReader reader{first};
        first.window().show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&first.window()));
        first.openServo();
        panel::Operator hands{first};
        hands.menuKey(2);
        hands.language(2);
        ASSERT_EQ(first.shownPart()->className(), "ServoMain");
        std::filesystem::copy_file(file(), file().string() + ".cut");
    }
    std::filesystem::rename(file().string() + ".cut", file());

    panel::Panel second{settings};
    const servopanel::testing::MessageReader reader{second};
    second.window().show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&second.window()));
    second.openServo();
    ASSERT_NE(second.shownPart(), nullptr);
    EXPECT_EQ(second.shownPart()->className(), "ServoMain");
    EXPECT_EQ(second.language(), 2);
    EXPECT_EQ(*second.variables().find("Ch-1.intern<.servo_zeiger>"), basic::Variant{std::int16_t{2}});
}

// Somebody made the machine smaller meanwhile.
TEST_F(RememberedChoicesTest, AServoThatIsNoLongerThereLeadsToTheMenu)
{
    const TestProject project{servopanel::testing::standardProject};
    RememberedChoices{folder(), project.folder()}.save({std::int16_t{1}, 1, 40});
    panel::PanelSettings settings = project.settings();
    settings.state = folder();
    panel::Panel panel{settings};
    const servopanel::testing::MessageReader reader{panel};
    panel.openServo();
    ASSERT_NE(panel.shownPart(), nullptr);
    EXPECT_EQ(panel.shownPart()->className(), "ServoMenu");
}

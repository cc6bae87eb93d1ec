// What an operator confirms is kept.
#include "journal/journal_reader.h"
#include "servo_page_test.h"
#include "support/full_disk.h"

#include <filesystem>
#include <string>
#include <vector>

namespace servopanel::testing {

namespace {

using journal::Entry;
using journal::Result;

class PanelJournal : public ServoPageTest {
protected:
    explicit PanelJournal(const std::string& folder = "journal", bool exists = true)
        : ServoPageTest{1280, [&](panel::PanelSettings& settings) {
                            settings.name = "P1";
                            settings.level = 3;
                            settings.journal = settings.project / folder;
                            if (exists) std::filesystem::create_directory(settings.journal);
                        }}
    {
    }

    void confirm(const std::string& number)
    {
        change("SollwertL", 1, number);
        hands_->footerKey(10);
    }
    // What was written to a variable since the start.
    std::vector<Entry> entries(const std::string& variable) const
    {
        const journal::Journal journal = journal::readJournal(project_.file("journal"));
        EXPECT_TRUE(journal.problems.empty());
        std::vector<Entry> entries;
        for (const Entry& entry : journal.entries)
            if (entry.variable == variable) entries.push_back(entry);
        return entries;
    }
    std::vector<std::string> reports() const
    {
        std::vector<std::string> reports;
        for (const panel::ErrorEntry& report : panel_->errors().entries())
            if (report.text.contains(QStringLiteral("cannot be recorded")))
                reports.push_back(report.text.toStdString());
        return reports;
    }
};

class PanelWithoutJournal : public PanelJournal {
protected:
    PanelWithoutJournal()
        : PanelJournal{"missing", false}
    {
    }
};

} // namespace

TEST_F(PanelJournal, HoldsTheElementsThatAConfirmChanges)
{
    confirm("42.5");
    const std::vector<Entry> kept = entries(setpoints);
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(kept[0].element, 0);
    EXPECT_EQ(kept[0].oldValue, 1.5);
    EXPECT_EQ(kept[0].newValue, 42.5);
    EXPECT_EQ(kept[0].result, Result::Done);
    EXPECT_EQ(kept[0].panel, "P1");
    EXPECT_EQ(kept[0].level, 3);
    EXPECT_EQ(kept[0].machine, "M1");
    EXPECT_EQ(kept[0].servo, 3);

    const std::vector<Entry> announced = entries(changedFlag);
    ASSERT_EQ(announced.size(), 1U);
    EXPECT_EQ(announced[0].newValue, 1);
    // Written back as they were: no element has a line of its own.
    for (const std::string& untouched : {secondSetpoints, switches, drawings}) {
        const std::vector<Entry> same = entries(untouched);
        ASSERT_EQ(same.size(), 1U) << untouched;
        EXPECT_EQ(same[0].element, journal::wholeValue) << untouched;
        EXPECT_EQ(same[0].oldValue, same[0].newValue) << untouched;
    }
    EXPECT_TRUE(entries(otherSetpoints).empty());
    EXPECT_TRUE(reports().empty());
}

TEST_F(PanelJournal, HoldsTheLevelOfTheMoment)
{
    confirm("42.5");
    panel_->setLevel(5);
    confirm("43.5");
    const std::vector<Entry> kept = entries(setpoints);
    ASSERT_EQ(kept.size(), 2U);
    EXPECT_EQ(kept[0].level, 3);
    EXPECT_EQ(kept[1].level, 5);
    EXPECT_EQ(kept[1].oldValue, 42.5);
}

// The program around the panel may have another way to the machine.
TEST_F(PanelJournal, HoldsWhatIsRefusedOnTheWay)
{
    flaky_->number = 2101;
    flaky_->unwritable.insert(setpoints);
    confirm("42.5");
    const std::vector<Entry> kept = entries(setpoints);
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(kept[0].newValue, 42.5);
    EXPECT_EQ(kept[0].result, Result::Refused);
    EXPECT_EQ(kept[0].number, 2101);
    EXPECT_NE(kept[0].text.find("refused by the controller"), std::string::npos) << kept[0].text;
}

TEST_F(PanelJournal, AFullDiskIsToldOnce)
{
    {
        const FullDisk full;
        confirm("42.5");
        EXPECT_EQ(answer(), "Written, values: 1");
        confirm("43.5");
    }
    ASSERT_EQ(reports().size(), 1U);
    EXPECT_NE(reports()[0].find("journal': "), std::string::npos) << reports()[0];
    confirm("44.5");
    EXPECT_EQ(reports().size(), 1U);
    // Nothing is lost of it.
    ASSERT_EQ(entries(setpoints).size(), 3U);
    EXPECT_EQ(entries(setpoints)[0].newValue, 42.5);
    EXPECT_EQ(entries(setpoints)[2].newValue, 44.5);
}

TEST_F(PanelWithoutJournal, IsToldAtItsStartAndGoesOn)
{
    ASSERT_EQ(reports().size(), 1U);
    EXPECT_EQ(reports()[0],
        "writes to the machine cannot be recorded: '" + project_.file("missing").string()
            + "': there is no such file or folder");
    confirm("42.5");
    EXPECT_EQ(answer(), "Written, values: 1");
    EXPECT_EQ(reports().size(), 1U);
    EXPECT_FALSE(std::filesystem::exists(project_.file("missing")));
}

} // namespace servopanel::testing

// How writes over a broker end in the journal.
#include "journal/journal_reader.h"
#include "panel_on_broker/panel_on_broker.h"

#include <filesystem>
#include <string>
#include <vector>

namespace servopanel::testing {

namespace {

using journal::Entry;
using journal::Result;

class JournalOnBroker : public ::testing::Test, protected PanelOnBroker {
protected:
    JournalOnBroker()
        : PanelOnBroker{[](panel::PanelSettings& settings) {
            settings.journal = settings.project / "journal";
            std::filesystem::create_directory(settings.journal);
        }}
    {
    }

    std::vector<Entry> entries(const std::string& variable) const
    {
        const journal::Journal journal = journal::readJournal(project.file("journal"));
        EXPECT_TRUE(journal.problems.empty());
        std::vector<Entry> entries;
        for (const Entry& entry : journal.entries)
            if (entry.variable == variable) entries.push_back(entry);
        return entries;
    }
    void confirm()
    {
        change();
        hands->footerKey(10);
    }
};

} // namespace

TEST_F(JournalOnBroker, AWriteIsDone)
{
    confirm();
    EXPECT_EQ(answer(), "Written, values: 1");
    const std::vector<Entry> kept = entries(setpoints);
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(kept[0].panel, "P1");
    EXPECT_EQ(kept[0].element, 0);
    EXPECT_EQ(kept[0].oldValue, 1.5);
    EXPECT_EQ(kept[0].newValue, entered);
    EXPECT_EQ(kept[0].result, Result::Done);
}

TEST_F(JournalOnBroker, AWriteIsRefused)
{
    controller->orderFault(R"({"fault":"refuse","code":"busy","times":100})");
    confirm();
    const std::vector<Entry> kept = entries(setpoints);
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(kept[0].newValue, entered);
    EXPECT_EQ(kept[0].result, Result::Refused);
    EXPECT_EQ(kept[0].number, 2104);
    EXPECT_EQ(kept[0].text, "the controller is busy: on purpose");
}

// The rest of the confirm is not sent, and that is told of each of them.
TEST_F(JournalOnBroker, AWriteWithoutAnAnswerIsUnknown)
{
    controller->orderFault(R"({"fault":"silent","times":100})");
    confirm();
    const std::vector<Entry> kept = entries(setpoints);
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(kept[0].newValue, entered);
    EXPECT_EQ(kept[0].result, Result::Unknown);
    EXPECT_EQ(kept[0].number, 2112);
    for (const std::string& next : {secondSetpoints, switches, drawings, changedFlag}) {
        const std::vector<Entry> unsent = entries(next);
        ASSERT_EQ(unsent.size(), 1U) << next;
        EXPECT_EQ(unsent[0].result, Result::Refused) << next;
        EXPECT_EQ(unsent[0].number, 2113) << next;
    }
}

} // namespace servopanel::testing

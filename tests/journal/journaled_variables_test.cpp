#include "jet/in_child.h"
#include "journal/journal_fixture.h"
#include "support/full_disk.h"

#include <filesystem>
#include <stdexcept>
#include <string>

namespace servopanel::testing {

namespace {

using journal::Entry;
using journal::Result;

class JournaledVariables : public JournalFixture {
protected:
    // What would be known if the panel ended now.
    std::vector<Entry> entries() const { return read().entries; }
    std::string problems() const
    {
        std::string all;
        for (const machine::Problem& problem : read().problems)
            all.append(problem.text()).append("\n");
        return all;
    }
};

} // namespace

TEST_F(JournaledVariables, AWriteIsKeptBeforeItIsSent)
{
    std::string meanwhile;
    machine->writing = [&] {
        meanwhile = content();
        now += 40;
    };
    change(1, 36);
    EXPECT_EQ(meanwhile,
        R"({"write":1,"time":1795310345250,"panel":"P1","level":3,"machine":"M1","servo":3,"variable":")"
            + para + "\",\"element\":1,\"old\":35.5,\"new\":36.0,\"result\":\"open\"}\n");
    EXPECT_EQ(content(),
        meanwhile + R"({"write":1,"begun":1795310345250,"time":1795310345290,"result":"done"})" + "\n");
}

TEST_F(JournaledVariables, OnlyChangedElementsAreKeptAndEndTogether)
{
    basic::Variant values = variables.ReadValue(para);
    basic::setElement(values, 0, 21.0);
    basic::setElement(values, 2, -1.0);
    variables.WriteValue(para, values);
    EXPECT_EQ(lineCount(), 3);
    const std::vector<Entry> kept = entries();
    ASSERT_EQ(kept.size(), 2U);
    EXPECT_EQ(kept[0].element, 0);
    EXPECT_EQ(kept[0].oldValue, 20);
    EXPECT_EQ(kept[0].newValue, 21);
    EXPECT_EQ(kept[1].element, 2);
    EXPECT_EQ(kept[1].oldValue, 0);
    EXPECT_EQ(kept[1].newValue, -1);
    for (const Entry& entry : kept) {
        EXPECT_EQ(entry.time, now);
        EXPECT_EQ(entry.panel, "P1");
        EXPECT_EQ(entry.level, 3);
        EXPECT_EQ(entry.machine, "M1");
        EXPECT_EQ(entry.servo, 3);
        EXPECT_EQ(entry.variable, para);
        EXPECT_EQ(entry.result, Result::Done);
        EXPECT_EQ(entry.number, 0);
        EXPECT_EQ(entry.text, "");
    }
    EXPECT_EQ(machine->ReadValue(para), basic::doubles({21, 35.5, -1}));
}

TEST_F(JournaledVariables, AWriteThatChangesNothingIsOneEntry)
{
    // In another type, but the same numbers.
    variables.ReadValue(para);
    variables.WriteValue(
        para, basic::Array{basic::VariantType::Variant, 1, {std::int16_t{20}, 35.5F, std::int32_t{0}}});
    const std::vector<Entry> kept = entries();
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(kept[0].element, -1);
    EXPECT_EQ(kept[0].oldValue.dump(), "[20.0,35.5,0.0]");
    EXPECT_EQ(kept[0].newValue, kept[0].oldValue);
    EXPECT_EQ(kept[0].result, Result::Done);
}

TEST_F(JournaledVariables, OneValueIsAWhole)
{
    variables.ReadValue(text);
    variables.WriteValue(text, "stopped; \"why?\"\n");
    const std::vector<Entry> kept = entries();
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(kept[0].machine, "M2");
    EXPECT_EQ(kept[0].servo, 12);
    EXPECT_EQ(kept[0].element, -1);
    EXPECT_EQ(kept[0].oldValue, "ready");
    EXPECT_EQ(kept[0].newValue, "stopped; \"why?\"\n");
}

TEST_F(JournaledVariables, AnOldValueIsWhatWasReadSinceTheLatestWrite)
{
    variables.WriteValue(para, basic::doubles({1, 2, 3}));
    variables.ReadValue(para);
    machine->store.WriteValue(para, basic::doubles({9, 9, 9}));
    variables.WriteValue(para, basic::doubles({1, 2, 4}));
    variables.WriteValue(para, basic::doubles({1, 2, 5}));
    const std::vector<Entry> kept = entries();
    ASSERT_EQ(kept.size(), 3U);
    EXPECT_TRUE(kept[0].oldValue.is_null());
    EXPECT_EQ(kept[0].newValue, journal::Json({1, 2, 3}));
    EXPECT_EQ(kept[1].element, 2);
    EXPECT_EQ(kept[1].oldValue, 3);
    EXPECT_TRUE(kept[2].oldValue.is_null());
    EXPECT_EQ(kept[2].element, -1);
}

TEST_F(JournaledVariables, ARefusalIsKeptAndPassedOn)
{
    machine->failure = basic::Error{
        2102, "Process variables", "Process variable '" + para + "': somebody else has changed it"};
    try {
        change(1, 36);
        FAIL() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.number, 2102);
        EXPECT_EQ(error.source, "Process variables");
        EXPECT_EQ(error.description, machine->failure->description);
    }
    machine->failure = basic::Error{2110, "Process variables", "no answer"};
    EXPECT_THROW(change(1, 36), basic::Error);
    machine->failure.reset();
    machine->writing = [] { throw std::runtime_error{"out of paper"}; };
    EXPECT_THROW(change(1, 36), std::runtime_error);

    const std::vector<Entry> kept = entries();
    ASSERT_EQ(kept.size(), 3U);
    EXPECT_EQ(kept[0].result, Result::Refused);
    EXPECT_EQ(kept[0].number, 2102);
    EXPECT_EQ(kept[0].text, "somebody else has changed it");
    EXPECT_EQ(kept[1].result, Result::Unknown);
    EXPECT_EQ(kept[1].number, 2110);
    EXPECT_EQ(kept[1].text, "no answer");
    EXPECT_EQ(kept[2].result, Result::Unknown);
    EXPECT_EQ(kept[2].text, "out of paper");
}

TEST_F(JournaledVariables, APanelThatIsKilledWhileItWaitsLeavesAnUnknownEnd)
{
    change(0, 21);
    file = journal::JournalFile{{.folder = folder.path()}};
    EXPECT_TRUE(jet::testing::inChild([&] {
        machine->writing = [] { ::_exit(0); };
        change(1, 36);
        return false;
    }));
    // The next run goes on in the same file.
    now += 1000;
    change(2, 1);
    const std::vector<Entry> kept = entries();
    ASSERT_EQ(kept.size(), 3U);
    EXPECT_EQ(kept[0].result, Result::Done);
    EXPECT_EQ(kept[1].element, 1);
    EXPECT_EQ(kept[1].newValue, 36);
    EXPECT_EQ(kept[1].result, Result::Unknown);
    EXPECT_EQ(kept[1].text, "the panel ended before the answer");
    EXPECT_EQ(kept[2].result, Result::Done);
    EXPECT_EQ(problems(), "");
}

TEST_F(JournaledVariables, AValueThatDoesNotFitIsKeptAsItCame)
{
    variables.ReadValue(para);
    EXPECT_THROW(variables.WriteValue(para, "five"), basic::Error);
    const std::vector<Entry> kept = entries();
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(kept[0].newValue, "five");
    EXPECT_EQ(kept[0].result, Result::Refused);
    EXPECT_EQ(kept[0].number, 13);
}

TEST_F(JournaledVariables, ThePanelsOwnVariablesAndReadsAreNotKept)
{
    variables.WriteValue(own, std::int16_t{2});
    EXPECT_EQ(variables.ReadValue(own), basic::Variant{std::int16_t{2}});
    EXPECT_EQ(variables.ReadValue(text), basic::Variant{"ready"});
    EXPECT_THROW(variables.ReadValue("Ch1.nothing"), basic::Error);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "journal"));
}

TEST_F(JournaledVariables, AWriteGoesOnWhenTheJournalFails)
{
    change(0, 21);
    {
        const FullDisk full{0};
        change(0, 22);
        change(0, 23);
        EXPECT_EQ(machine->ReadValue(para), basic::doubles({23, 35.5, 0}));
        machine->failure = basic::Error{5, "Process variables", "no"};
        EXPECT_THROW(change(0, 24), basic::Error);
        machine->failure.reset();
    }
    ASSERT_EQ(troubles.size(), 1U);
    EXPECT_TRUE(troubles[0].starts_with("'")) << troubles[0];
    // What waited is there again, in its order.
    change(0, 25);
    EXPECT_EQ(troubles.size(), 1U);
    std::vector<double> values;
    for (const Entry& entry : entries())
        values.push_back(entry.newValue.get<double>());
    EXPECT_EQ(values, (std::vector<double>{21, 22, 23, 24, 25}));
    EXPECT_EQ(problems(), "");
    // A new failure is told again.
    {
        const FullDisk full{0};
        change(0, 26);
    }
    EXPECT_EQ(troubles.size(), 2U);
}

TEST_F(JournaledVariables, AWriteGoesOnWithoutAFolder)
{
    journal::JournalFile nowhere{{.folder = folder.path() / "missing"}};
    journal::JournaledVariables lost{machine, nowhere, context};
    lost.WriteValue(text, "stopped");
    EXPECT_EQ(machine->ReadValue(text), basic::Variant{"stopped"});
    ASSERT_EQ(troubles.size(), 1U);
    EXPECT_EQ(troubles[0], "'" + (folder.path() / "missing").string() + "': there is no such file or folder");
}

TEST_F(JournaledVariables, AWriteGoesOnWhenItsSurroundingsFail)
{
    context.panel = []() -> std::string { throw std::runtime_error{"no name"}; };
    context.trouble = [](const std::string&) { throw std::runtime_error{"nobody listens"}; };
    journal::JournaledVariables careless{machine, file, context};
    careless.WriteValue(text, "stopped");
    EXPECT_EQ(machine->ReadValue(text), basic::Variant{"stopped"});
}

TEST_F(JournaledVariables, AWriteThatIsNotKeptHasNoEndEither)
{
    change(0, 21);
    const std::string before = content();
    for (const bool isBeforeTheNumber : {true, false}) {
        if (isBeforeTheNumber)
            context.now = []() -> std::int64_t { throw std::runtime_error{"no clock"}; };
        else
            context.panel = []() -> std::string { throw std::runtime_error{"no name"}; };
        journal::JournaledVariables careless{machine, file, context};
        careless.WriteValue(text, "stopped");
        EXPECT_EQ(content(), before);
        EXPECT_EQ(problems(), "");
        machine->failure = basic::Error{5, "Process variables", "no"};
        EXPECT_THROW(careless.WriteValue(text, "ready"), basic::Error);
        machine->failure.reset();
        EXPECT_EQ(content(), before);
        context.now = [this] { return now; };
    }
}

TEST_F(JournaledVariables, AnotherPanelInTheSameFolderWritesWithoutAJournal)
{
    change(0, 21);
    journal::JournalFile second{{.folder = folder.path()}};
    journal::JournaledVariables others{machine, second, context};
    others.WriteValue(text, "stopped");
    EXPECT_EQ(machine->ReadValue(text), basic::Variant{"stopped"});
    ASSERT_EQ(troubles.size(), 1U);
    EXPECT_TRUE(troubles[0].ends_with("another program is writing this journal")) << troubles[0];
    EXPECT_EQ(lineCount(), 2);
}

} // namespace servopanel::testing

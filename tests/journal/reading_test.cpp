#include "journal/journal_fixture.h"

#include <filesystem>
#include <string>

namespace servopanel::testing {

namespace {

using journal::Entry;
using journal::Result;

std::string entryLine(std::int64_t write, std::int64_t time, const std::string& variable = para)
{
    Entry entry;
    entry.write = write;
    entry.time = time;
    entry.panel = "P1";
    entry.variable = variable;
    return journal::lineOf(entry) + '\n';
}

std::string endLine(std::int64_t write, std::int64_t begun, Result result = Result::Done)
{
    return journal::lineOf(journal::Ending{write, begun, begun + 40, result, 0, {}}) + '\n';
}

class Reading : public JournalFixture {
protected:
    // Times and results in their order.
    std::string told()
    {
        const journal::Journal journal = read();
        std::string told;
        for (const Entry& entry : journal.entries)
            told.append(std::to_string(entry.time)).append(" ").append(nameOf(entry.result)).append("\n");
        for (const machine::Problem& problem : journal.problems)
            told.append(problem.text()).append("\n");
        return told;
    }
};

} // namespace

TEST_F(Reading, JoinsWritesAndTheirEnds)
{
    put(entryLine(1, 100) + entryLine(1, 100) + endLine(1, 100) + entryLine(2, 200)
        + endLine(2, 200, Result::Refused));
    EXPECT_EQ(told(), "100 done\n100 done\n200 refused\n");
}

TEST_F(Reading, AWriteWithoutAnEndIsUnknown)
{
    // The panel was killed, and counts from 1 again.
    put(entryLine(1, 100) + entryLine(1, 200) + endLine(1, 200));
    EXPECT_EQ(told(), "100 unknown\n200 done\n");
    EXPECT_EQ(read().entries[0].text, "the panel ended before the answer");
}

TEST_F(Reading, GoesOverAllFilesInTheirOrder)
{
    put(endLine(9, 50) + entryLine(1, 100), 3);
    put(endLine(1, 100) + entryLine(2, 200), 2);
    put(endLine(2, 200, Result::Unknown), 1);
    put(entryLine(3, 300) + endLine(3, 300));
    EXPECT_EQ(told(), "100 done\n200 unknown\n300 done\n");
}

TEST_F(Reading, BrokenLinesAreToldAndPassedOver)
{
    put(entryLine(1, 100) + "nonsense\n{\"write\":2}\n" + endLine(1, 100), 1);
    put("\xFF\n\n" + endLine(7, 700) + journal::lineOf(journal::Gap{12}) + "\n"
        + std::string(2 * 1024 * 1024, ' ') + "\n" + entryLine(2, 200) + "{\"write\":3,\"ti");
    const std::string all = told();
    EXPECT_TRUE(all.starts_with("100 done\n200 unknown\njournal.1: line 2: ")) << all;
    for (const char* part : {"\njournal.1: line 3: time is missing\n", "\njournal: line 1: is not UTF-8\n",
             "\njournal: line 2: ", "\njournal: line 3: is the end of a write that is not here\n",
             "\njournal: line 4: 12 lines are missing here, because the journal could not be written\n",
             "\njournal: line 5: is too long\n", "\njournal: line 7: is cut off\n"})
        EXPECT_NE(all.find(part), std::string::npos) << part << "in\n" << all;
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 10);
}

TEST_F(Reading, AFileThatCannotBeReadDoesNotHideTheOthers)
{
    folder.folder("journal.1");
    put(entryLine(1, 100) + endLine(1, 100));
    EXPECT_FALSE(read().isWhole);
    EXPECT_EQ(
        told(), "100 done\njournal.1: '" + (folder.path() / "journal.1").string() + "': it is a folder\n");
}

TEST_F(Reading, NoJournalIsAnError)
{
    for (const std::filesystem::path& nothing : {folder.path(), folder.path() / "missing"})
        try {
            journal::readJournal(nothing);
            FAIL() << "no error";
        } catch (const basic::Error& error) {
            EXPECT_EQ(error.number, 53);
            EXPECT_EQ(error.description, "'" + nothing.string() + "': there is no journal in this folder");
        }
}

TEST_F(Reading, WhatWasPutAsideByTheWriterIsFound)
{
    journal::JournalFile small{{.folder = folder.path(), .largest = 1000, .kept = 4}};
    journal::JournaledVariables busy{machine, small, context};
    for (int i = 1; i <= 30; ++i) {
        ++now;
        busy.ReadValue(para);
        busy.WriteValue(para, basic::doubles({static_cast<double>(i), 35.5, 0}));
    }
    EXPECT_TRUE(troubles.empty());
    const journal::Journal kept = read();
    EXPECT_TRUE(kept.problems.empty());
    ASSERT_GE(kept.entries.size(), 10U);
    ASSERT_LT(kept.entries.size(), 30U);
    double expected = 30 - static_cast<double>(kept.entries.size());
    for (const Entry& entry : kept.entries) {
        EXPECT_EQ(entry.newValue.get<double>(), ++expected);
        EXPECT_EQ(entry.result, Result::Done);
    }
}

} // namespace servopanel::testing

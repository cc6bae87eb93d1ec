#include "journal/journal_reader.h"
#include "journal/journaled_variables.h"
#include "journal/tool.h"
#include "mqtt/machine_fixture.h"
#include "portable/temporary_folder.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace servopanel::testing {

namespace {

using journal::Entry;
using journal::Result;

struct CommandPayloads : mqtt::LinkReceiver {
    void linkUp() override { }
    void linkDown(std::string_view) override { }
    void received(std::string_view, std::string_view payload, bool) override
    {
        payloads.emplace_back(payload);
    }
    std::vector<std::string> payloads;
};

// A panel that has kept a journal and has ended, and servo-journal on the broker of its machine.
class Undo : public MachineFixture {
protected:
    void SetUp() override { settle(); }

    // As the page writes: what is read, with one element changed.
    void change(std::int32_t element, double value)
    {
        basic::Variant values = panel.ReadValue(para);
        basic::setElement(values, element, value);
        panel.WriteValue(para, values);
        ++now;
    }
    void endPanel() { file = journal::JournalFile{{.folder = folder.path()}}; }

    int run(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), folder.path().string());
        output = {};
        return static_cast<int>(journal::runTool(arguments, surroundings, output));
    }
    int undo(const std::string& write, std::vector<std::string> more = {})
    {
        endPanel();
        std::vector<std::string> arguments{"--undo", write, "--broker", "127.0.0.1", "--level", "5"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const int status = run(arguments);
        settle();
        return status;
    }
    bool says(const std::string& what) const
    {
        return (output.text + output.errors).find(what) != std::string::npos;
    }
    std::vector<Entry> entries() const { return entriesIn(folder.path()); }
    static std::vector<Entry> entriesIn(const std::filesystem::path& place)
    {
        return journal::readJournal(place).entries;
    }

    tests::TemporaryFolder folder;
    std::int64_t now = 1'795'310'345'250; // 2026-11-22T01:19:05.250Z
    journal::JournalFile file{{.folder = folder.path()}};
    journal::JournaledVariables panel{
        std::shared_ptr<platform::ProcessVarAccess>{&variables, [](platform::ProcessVarAccess*) {}}, file,
        {.panel = [] { return "P1"; },
            .level = [] { return std::int16_t{5}; },
            .trouble = [](const std::string& reason) { ADD_FAILURE() << reason; },
            .now = [this] { return now; }}};
    std::string client;
    bool reachable = true;
    journal::Surroundings surroundings{.makeLink =
                                           [this](const mqtt::BrokerAddress&, const std::string& id) {
                                               client = id;
                                               auto link = std::make_unique<TestLink>(net);
                                               link->reachable = reachable;
                                               return link;
                                           },
        .clock = clock,
        .now = [this] { return now; },
        .computer = "E1"};
    journal::ToolOutput output;
};

} // namespace

TEST_F(Undo, ShowsWhatItWouldDo)
{
    change(1, 6);
    const std::size_t commands = controller.seen().size();
    EXPECT_EQ(undo("1"), 0);
    EXPECT_EQ(output.text,
        "Write 1@2026-11-22T01:19:05.250Z of panel P1 to " + para
            + ":\n  element 1 goes back from 6 to 5\nNothing was written; --apply writes it.\n");
    EXPECT_EQ(output.errors, "");
    EXPECT_EQ(controller.seen().size(), commands);
    EXPECT_EQ(numbers(para), (std::vector<double>{5, 6, 5}));
    EXPECT_EQ(entries().size(), 1U);
}

TEST_F(Undo, OnlyTheElementsOfTheWriteGoBack)
{
    change(1, 6);
    CommandPayloads sent;
    TestLink watcher{net};
    watcher.start(sent, {"pm/v1/M1/cmd/+"});
    watcher.poll(0);
    // Somebody else changes another element.
    store.write(para, basic::doubles({9, 6, 5}), machine::Writer::Machine);
    EXPECT_EQ(undo("1", {"--apply"}), 0);
    EXPECT_TRUE(says("done: the machine holds what it held before\n"));
    EXPECT_EQ(output.errors, "");
    EXPECT_EQ(client, "journal-E1");
    EXPECT_EQ(numbers(para), (std::vector<double>{9, 5, 5}));

    // As the machine saw it: with the value that was looked at, the level, and the word that parameters have changed.
    const auto seen = controller.seen();
    ASSERT_EQ(seen.size(), 3U);
    EXPECT_EQ(seen[1].name, para);
    EXPECT_EQ(seen[1].level, 5);
    EXPECT_LE(seen[1].writtenAt.value(), seen[1].deadline);
    EXPECT_EQ(seen[2].name, flag);
    watcher.poll(0);
    ASSERT_EQ(sent.payloads.size(), 2U);
    EXPECT_EQ(mqtt::readCommand("cmd", sent.payloads[0]).old.dump(), "[9.0,6.0,5.0]");

    const std::vector<Entry> kept = entries();
    ASSERT_EQ(kept.size(), 3U);
    EXPECT_EQ(kept[1].panel, "E1");
    EXPECT_EQ(kept[1].level, 5);
    EXPECT_EQ(kept[1].element, 1);
    EXPECT_EQ(kept[1].oldValue, 6);
    EXPECT_EQ(kept[1].newValue, 5);
    EXPECT_EQ(kept[1].result, Result::Done);
    EXPECT_EQ(kept[2].variable, flag);
    EXPECT_EQ(kept[2].result, Result::Done);
}

TEST_F(Undo, CanBeTakenBackItself)
{
    change(1, 6);
    EXPECT_EQ(undo("1", {"--apply"}), 0);
    // Writes are numbered anew in each run.
    EXPECT_EQ(undo("1", {"--panel", "E1", "--apply"}), 0) << output.errors;
    EXPECT_EQ(numbers(para), (std::vector<double>{5, 6, 5}));
}

TEST_F(Undo, AnotherValueMeanwhileIsNotOverwritten)
{
    change(1, 6);
    store.write(para, basic::doubles({5, 7, 5}), machine::Writer::Machine);
    settle();
    EXPECT_EQ(undo("1", {"--apply"}), 2);
    EXPECT_TRUE(says("somebody else has changed the value meanwhile: element 1 holds 7 and not 6"))
        << output.errors;
    EXPECT_EQ(undo("1"), 2);
    EXPECT_EQ(numbers(para), (std::vector<double>{5, 7, 5}));
    EXPECT_EQ(entries().size(), 1U);
}

TEST_F(Undo, WhatIsBackAlreadyStays)
{
    change(1, 6);
    EXPECT_EQ(undo("1", {"--apply"}), 0);
    EXPECT_EQ(undo("1@2026-11-22T01:19:05.250Z", {"--apply"}), 2);
    EXPECT_TRUE(says("element 1 holds its old value already")) << output.errors;
    EXPECT_EQ(entries().size(), 3U);
}

TEST_F(Undo, OneOfSeveralElements)
{
    panel.ReadValue(para);
    panel.WriteValue(para, basic::doubles({6, 7, 5}));
    EXPECT_EQ(undo("1", {"--element", "0", "--apply"}), 0);
    EXPECT_EQ(numbers(para), (std::vector<double>{5, 7, 5}));
    EXPECT_EQ(undo("1", {"--panel", "P1"}), 2);
    EXPECT_TRUE(says("element 0 holds its old value already")) << output.errors;
}

TEST_F(Undo, AWordIsAWhole)
{
    panel.ReadValue(switches);
    panel.WriteValue(switches, std::int32_t{7});
    EXPECT_EQ(undo("1", {"--apply"}), 0);
    EXPECT_TRUE(says("the value goes back from 7 to 5")) << output.text;
    EXPECT_EQ(*store.find(switches), basic::Variant{std::int32_t{5}});
}

TEST_F(Undo, WhatCannotGoBackIsSaid)
{
    EXPECT_THROW(change(1, 60), basic::Error); // 1: out of range
    panel.ReadValue(para);
    panel.WriteValue(para, basic::doubles({5, 5, 5})); // 2: as it was
    panel.WriteValue(para, basic::doubles({5, 6, 5})); // 3: nobody had read it
    panel.WriteValue(flag, std::int16_t{1}); // 4
    Entry strange = entries()[0];
    strange.write = 6;
    strange.machine.clear();
    EXPECT_EQ(
        file.append({lineOf(strange), lineOf(journal::Ending{6, strange.time, now, Result::Done, 0, {}})}),
        "");
    const std::pair<const char*, const char*> rows[]{{"1", "it was refused: the machine holds what it held"},
        {"2", "it changed nothing"}, {"3", "nobody knows what the machine held before"},
        {"4", "it only told the machine of changed parameters"}, {"5", "there is no such write"},
        {"6", "nobody knows to which machine it went"}, {"1@2026-11-21", "there is no such write"}};
    const std::size_t commands = controller.seen().size();
    for (const auto& [write, problem] : rows) {
        EXPECT_EQ(undo(write, {"--apply"}), 2) << write;
        EXPECT_TRUE(says(problem)) << output.errors;
    }
    EXPECT_EQ(controller.seen().size(), commands);
    EXPECT_EQ(client, "") << "nobody need be asked for that";
}

TEST_F(Undo, TheMachineChecksTheLevel)
{
    change(2, 6);
    EXPECT_EQ(undo("1", {"--level", "3", "--apply"}), 2);
    EXPECT_TRUE(says("servo-journal: refused 2101: ")) << output.errors;
    EXPECT_EQ(numbers(para), (std::vector<double>{5, 5, 6}));
    const std::vector<Entry> kept = entries();
    ASSERT_EQ(kept.size(), 2U);
    EXPECT_EQ(kept[1].level, 3);
    EXPECT_EQ(kept[1].result, Result::Refused);
}

TEST_F(Undo, NoAnswerIsUnknown)
{
    change(1, 6);
    controller.orderFault(R"({"fault":"silent","times":10})");
    EXPECT_EQ(undo("1", {"--apply"}), 3);
    EXPECT_TRUE(says("servo-journal: unknown 2112: ")) << output.errors;
    EXPECT_FALSE(says("may not know")) << "it holds nothing new: " << output.errors;
    EXPECT_FALSE(says("done"));
    const std::vector<Entry> kept = entries();
    ASSERT_EQ(kept.size(), 2U);
    EXPECT_EQ(kept[1].result, Result::Unknown);
}

TEST_F(Undo, WhatTheMachineHoldsWithoutAnAnswerIsNotAnnounced)
{
    change(1, 6);
    controller.orderFault(R"({"fault":"silent","times":10,"acts":true})");
    EXPECT_EQ(undo("1", {"--apply"}), 3);
    EXPECT_TRUE(says("servo-journal: unknown 2111: ")) << output.errors;
    EXPECT_TRUE(says("the machine may not know that its parameters have changed: refused 2113: "))
        << output.errors;
    const std::vector<Entry> kept = entries();
    ASSERT_EQ(kept.size(), 3U);
    EXPECT_EQ(kept[1].result, Result::Unknown);
    EXPECT_EQ(kept[2].number, 2113);
}

TEST_F(Undo, AnUnknownWriteCanGoBack)
{
    controller.orderFault(R"({"fault":"silent","times":1,"acts":true})");
    EXPECT_THROW(change(1, 6), basic::Error);
    EXPECT_EQ(entries()[0].result, Result::Unknown);
    EXPECT_EQ(undo("1", {"--apply"}), 0) << output.errors;
    EXPECT_EQ(numbers(para), (std::vector<double>{5, 5, 5}));
}

TEST_F(Undo, WritesAreToldApartByTheirTime)
{
    change(1, 6);
    now += 60'000;
    journal::JournaledVariables nextRun{
        std::shared_ptr<platform::ProcessVarAccess>{&variables, [](platform::ProcessVarAccess*) {}}, file,
        {.panel = [] { return "P1"; },
            .level = [] { return std::int16_t{5}; },
            .trouble = [](const std::string&) {},
            .now = [this] { return now; }}};
    nextRun.ReadValue(para);
    nextRun.WriteValue(para, basic::doubles({5, 6, 7}));
    EXPECT_EQ(undo("1", {"--apply"}), 2);
    EXPECT_EQ(output.errors,
        "servo-journal: these are several writes; take one of them:\n"
        "  --undo 1@2026-11-22T01:19:05.250Z  "
            + para + "\n  --undo 1@2026-11-22T01:20:05.251Z  " + para + "\n");
    EXPECT_EQ(undo("1@2026-11-22T01:20", {"--apply"}), 0) << output.errors;
    EXPECT_EQ(numbers(para), (std::vector<double>{5, 6, 5}));
    EXPECT_EQ(undo("2026-11-22T01:19:05.250Z", {"--apply"}), 0) << output.errors;
    EXPECT_EQ(numbers(para), (std::vector<double>{5, 5, 5}));
}

TEST_F(Undo, WhileThePanelKeepsTheJournalTheWriteNeedsAnother)
{
    change(1, 6);
    const std::vector<std::string> arguments{"--undo", "1", "--broker", "127.0.0.1", "--apply"};
    EXPECT_EQ(run(arguments), 2);
    EXPECT_EQ(output.errors,
        "servo-journal: '" + (folder.path() / "journal").string()
            + "': another program is writing this journal; nothing was written, because a write is kept. "
              "--journal names another folder for it\n");
    EXPECT_EQ(client, "");
    // To look is always possible.
    EXPECT_EQ(run({"--undo", "1", "--broker", "127.0.0.1"}), 0);

    const tests::TemporaryFolder other;
    EXPECT_EQ(run({"--undo", "1", "--broker", "127.0.0.1", "--level", "5", "--journal", other.path(),
                  "--name", "office", "--apply"}),
        0);
    settle();
    EXPECT_EQ(numbers(para), (std::vector<double>{5, 5, 5}));
    EXPECT_EQ(entries().size(), 1U);
    const std::vector<Entry> kept = entriesIn(other.path());
    ASSERT_EQ(kept.size(), 2U);
    EXPECT_EQ(kept[0].panel, "office");
    EXPECT_EQ(kept[0].newValue, 5);
}

TEST_F(Undo, WithoutAConnectionNothingHappens)
{
    change(1, 6);
    reachable = false;
    EXPECT_EQ(undo("1", {"--apply"}), 2);
    EXPECT_TRUE(says(para)) << output.errors;
    reachable = true;
    controller.orderFault(R"({"fault":"heartless","on":true})");
    pass(3000);
    EXPECT_EQ(undo("1", {"--apply"}), 2);
    EXPECT_EQ(entries().size(), 1U);
    EXPECT_EQ(*store.find(para), basic::doubles({5, 6, 5}));
}

TEST_F(Undo, TheCommandLineIsChecked)
{
    change(1, 6);
    endPanel();
    const std::pair<std::vector<std::string>, std::string> rows[]{
        {{"--undo", "1"},
            "--undo needs --broker; a machine without one lives in the panel, and only the panel can write "
            "to "
            "it"},
        {{"--apply"}, "--apply needs --undo"}, {{"--broker", "x"}, "--broker needs --undo"},
        {{"--undo", "1", "--csv"}, "--csv shows writes and --undo takes one back: one of them"},
        {{"--undo", "one"}, "'one' is no write such as 7, 7@2026-11-22T01:19 or 2026-11-22T01:19:05.250Z"},
        {{"--undo", "1@noon"},
            "'1@noon' is no write such as 7, 7@2026-11-22T01:19 or 2026-11-22T01:19:05.250Z"},
        {{"--undo", "@2026-11-22"},
            "'@2026-11-22' is no write such as 7, 7@2026-11-22T01:19 or 2026-11-22T01:19:05.250Z"},
        {{"--undo"}, "--undo needs a value"},
        {{"--undo", "1", "--level", "6"}, "'6' is no access level from 0 to 5"},
        {{"--undo", "1", "--broker", "unix:"}, "--broker unix:: "}};
    for (const auto& [arguments, problem] : rows) {
        EXPECT_EQ(run(arguments), 2);
        EXPECT_TRUE(output.errors.starts_with("servo-journal: " + problem)) << output.errors;
    }
    EXPECT_EQ(client, "");
}

} // namespace servopanel::testing

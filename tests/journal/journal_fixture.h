#pragma once

#include "basic/error.h"
#include "journal/journal_file.h"
#include "journal/journal_reader.h"
#include "journal/journaled_variables.h"
#include "machine/variable_store.h"
#include "portable/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace servopanel::testing {

inline const std::string para = "Ch1.M1_T_servo_3<.mM1_servo_para_3>";
inline const std::string text = "Ch1.M2_T_servo_12<.mM2_fetext_12>";
inline const std::string own = "Ch-1.intern<.sprache>";

// A machine whose next write may end otherwise, and which can be looked at while it is written to.
class Machine : public platform::ProcessVarAccess {
public:
    Machine()
    {
        store.declare(para, basic::doubles({20, 35.5, 0}));
        store.declare(text, "ready");
        store.declare(own, std::int16_t{1});
    }
    basic::Variant ReadValue(std::string_view name) override { return store.ReadValue(name); }
    void WriteValue(std::string_view name, const basic::Variant& value) override
    {
        if (writing) writing();
        if (failure) throw basic::Error{*failure};
        store.WriteValue(name, value);
    }

    machine::VariableStore store;
    std::function<void()> writing;
    std::optional<basic::Error> failure;
};

// A panel that keeps a journal in a folder of the test's own.
class JournalFixture : public ::testing::Test {
protected:
    std::string content(int number = 0) const
    {
        return tests::contentOf(journal::journalFile(folder.path(), number));
    }
    long lineCount(int number = 0) const
    {
        const std::string bytes = content(number);
        return std::count(bytes.begin(), bytes.end(), '\n');
    }
    void put(const std::string& bytes, int number = 0) const
    {
        folder.file(journal::journalFile("", number).string(), bytes);
    }
    journal::Journal read() const { return journal::readJournal(folder.path()); }

    // Reads, changes one element and writes the whole array, as the page does.
    void change(std::int32_t element, double value)
    {
        basic::Variant values = variables.ReadValue(para);
        basic::setElement(values, element, value);
        variables.WriteValue(para, values);
    }

    tests::TemporaryFolder folder;
    std::int64_t now = 1'795'310'345'250; // 2026-11-22T01:19:05.250Z
    std::vector<std::string> troubles;
    std::shared_ptr<Machine> machine = std::make_shared<Machine>();
    journal::JournalFile file{{.folder = folder.path()}};
    journal::JournalContext context{.panel = [] { return "P1"; },
        .level = [] { return std::int16_t{3}; },
        .trouble = [this](const std::string& trouble) { troubles.push_back(trouble); },
        .now = [this] { return now; }};
    journal::JournaledVariables variables{machine, file, context};
};

} // namespace servopanel::testing

#pragma once

#include "basic/conversions.h"
#include "basic/text.h"
#include "display/umfeld.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Small stand-ins for everything around the library, for the tests of single procedures. Each does the plain thing,
// keeps what it was asked in one log, and fails where a test tells it to.
namespace servopanel::testing {

// One report of a failed statement.
struct Report {
    std::int32_t number = 0;
    std::string procedure;
    friend bool operator==(const Report&, const Report&) = default;
    friend void PrintTo(const Report& report, std::ostream* out)
    {
        *out << report.number << " in " << report.procedure;
    }
};

class ErrorList final : public basic::ErrorSink {
public:
    void report(const basic::Error& error, std::string_view procedure) noexcept override
    {
        reports.push_back({error.number, std::string{procedure}});
    }
    std::vector<Report> reports;
};

// What the fakes share. Files and pictures go by full path; "P:\" is the project's folder.
struct World {
    std::map<std::string, basic::Variant> variables;
    std::map<std::string, platform::TextFile> texts; // files that can be opened
    std::set<std::string> existing; // paths that a search finds
    std::map<std::string, std::map<std::string, std::string>> profiles; // by file, then "[section] entry"
    std::map<std::string, basic::ObjectRef> pictures;
    std::map<std::string, platform::EnvironmentValue> environment;
    float twipsPerPixelX = 15;
    float twipsPerPixelY = 15;

    std::vector<std::string> log; // what was asked of the surroundings, in order
    std::function<void()> accessed = [] {}; // what comes in during an access
    std::map<std::string, int> failures; // accesses that fail, by their line in the log; how often

    // Notes one access, and fails it when the test asked for that.
    void access(const std::string& line)
    {
        log.push_back(line);
        accessed();
        const auto failure = failures.find(line);
        if (failure == failures.end() || failure->second == 0) return;
        --failure->second;
        throw basic::Error{1000, "Fake", "refused: " + line};
    }
    void fail(const std::string& line, int times = std::numeric_limits<int>::max())
    {
        failures[line] = times;
    }
};

class FakeVariables final : public platform::ProcessVarAccess {
public:
    explicit FakeVariables(World& world)
        : world_{world}
    {
    }
    basic::Variant ReadValue(std::string_view name) override
    {
        world_.access("read " + std::string{name});
        const auto found = world_.variables.find(std::string{name});
        if (found == world_.variables.end()) throw basic::Error{1001, "Fake", "unknown " + std::string{name}};
        return found->second;
    }
    void WriteValue(std::string_view name, const basic::Variant& value) override
    {
        world_.access("write " + std::string{name});
        world_.variables[std::string{name}] = value;
    }

private:
    World& world_;
};

class FakePaths final : public platform::PathHelper {
public:
    explicit FakePaths(World& world)
        : world_{world}
    {
    }
    std::string path(std::string_view name) override
    {
        world_.access("path " + std::string{name});
        return "P:\\" + std::string{name};
    }
    void openScreen(std::int16_t number) override
    {
        world_.access("screen " + basic::decimal(std::int32_t{number}));
    }
    std::int16_t inputPermission() override { return -1; }

private:
    World& world_;
};

// Rows of one table, with numbers as bookmarks that are never given out twice.
struct FakeRow {
    std::int32_t id = 0;
    std::map<std::string, basic::Variant> columns; // by name in upper case; a column that is missing fails
};
struct FakeTable {
    std::vector<FakeRow> rows;
    int updates = 0;
};

class FakeRows final : public platform::RecordSet {
public:
    FakeRows(World& world, FakeTable& table)
        : world_{world}
        , table_{table}
    {
    }
    bool atEnd() override
    {
        world_.access("atEnd");
        return position_ >= table_.rows.size();
    }
    void moveNext() override
    {
        world_.access("moveNext");
        ++position_;
    }
    basic::Variant field(std::string_view column) override
    {
        const auto found = current().columns.find(basic::upperCase(column));
        if (found == current().columns.end()) throw basic::Error{3265, "Fake", std::string{column}};
        return found->second;
    }
    basic::Variant bookmark() override { return current().id; }
    void moveTo(const basic::Variant& bookmark) override
    {
        position_ = 0;
        while (position_ < table_.rows.size() && basic::Variant{current().id} != bookmark)
            ++position_;
        if (position_ == table_.rows.size()) throw basic::Error{3167, "Fake", "row is gone"};
    }
    void edit() override { edited_ = current(); }
    void setField(std::string_view column, const basic::Variant& value) override
    {
        if (!edited_) throw basic::Error{3020, "Fake", "not editing"};
        world_.access("set " + std::string{column});
        edited_->columns[basic::upperCase(column)] = value;
    }
    void update() override
    {
        if (!edited_) throw basic::Error{3020, "Fake", "not editing"};
        world_.access("update");
        current() = *std::exchange(edited_, std::nullopt);
        ++table_.updates;
    }

private:
    FakeRow& current()
    {
        if (position_ >= table_.rows.size()) throw basic::Error{3021, "Fake", "no current row"};
        return table_.rows[position_];
    }

    World& world_;
    FakeTable& table_;
    std::size_t position_ = 0;
    std::optional<FakeRow> edited_;
};

class FakeEngine final : public platform::DBEngine {
public:
    FakeEngine(World& world, std::map<std::string, FakeTable>& tables)
        : world_{world}
        , tables_{tables}
    {
    }
    std::unique_ptr<platform::Database> open(std::string_view path) override
    {
        world_.access("db open " + std::string{path});
        const auto found = tables_.find(std::string{path});
        if (found == tables_.end()) throw basic::Error{3024, "Fake", "no such database"};
        return std::make_unique<Opened>(world_, found->second);
    }

private:
    class Opened final : public platform::Database {
    public:
        Opened(World& world, FakeTable& table)
            : world_{world}
            , table_{table}
        {
        }
        std::unique_ptr<platform::RecordSet> openRecordSet(std::string_view query) override
        {
            world_.access(std::string{query});
            return std::make_unique<FakeRows>(world_, table_);
        }
        void close() override { world_.access("db close"); }

    private:
        World& world_;
        FakeTable& table_;
    };

    World& world_;
    std::map<std::string, FakeTable>& tables_;
};

class FakeErrorDisplay final : public platform::ErrorDisplay {
public:
    void ErrMessage(std::int32_t, std::string_view, std::string_view, std::string_view) override { }
    void CloseMe() override
    {
        ++closings;
        if (broken) throw std::runtime_error{"a mistake of the host"};
        if (fails) basic::raise(basic::ErrorNumber::ObjectNotSet);
    }
    int closings = 0;
    bool fails = false;
    bool broken = false; // ends in an exception that is no error of the seam
};

// The surroundings as the library is given them.
class FakePlatform final : public platform::LateObjects,
                           public platform::Messages,
                           public platform::Profile,
                           public platform::Files,
                           public platform::Surroundings,
                           public platform::Pictures {
public:
    World world;
    std::map<std::string, FakeTable> tables; // databases, by full path
    std::shared_ptr<platform::DBEngine> engine; // another one than that over the tables
    std::vector<std::string> shown; // texts of message boxes
    std::map<std::string, std::string> written; // files that were replaced
    bool withoutObjects = false; // hands out nothing
    std::function<void()> loading = [] {}; // what comes in while a picture is loaded

    platform::LibraryPlatform library() { return {*this, *this, *this, *this, *this, *this}; }

    std::shared_ptr<platform::ProcessVarAccess> createProcessVarAccess() override
    {
        world.access("create ProcessVarAccess");
        if (withoutObjects) return nullptr;
        return std::make_shared<FakeVariables>(world);
    }
    std::shared_ptr<platform::PathHelper> createPathHelper() override
    {
        world.access("create PathHelper");
        if (withoutObjects) return nullptr;
        return std::make_shared<FakePaths>(world);
    }
    std::shared_ptr<platform::ErrorDisplay> createErrorDisplay() override { return nullptr; }
    std::shared_ptr<platform::DBEngine> createDBEngine() override
    {
        world.access("create DBEngine");
        if (withoutObjects) return nullptr;
        if (engine) return engine;
        return std::make_shared<FakeEngine>(world, tables);
    }

    void show(std::string_view text) override
    {
        world.access("message");
        shown.emplace_back(text);
    }

    std::optional<std::string> text(
        std::string_view file, std::string_view section, std::string_view entry) override
    {
        world.access("profile " + std::string{file});
        const auto found = world.profiles.find(std::string{file});
        if (found == world.profiles.end()) return std::nullopt;
        const auto value = found->second.find("[" + std::string{section} + "] " + std::string{entry});
        if (value == found->second.end()) return std::nullopt;
        return value->second;
    }

    platform::TextFile openText(std::string_view path) override
    {
        world.access("open " + std::string{path});
        const auto found = world.texts.find(std::string{path});
        if (found == world.texts.end()) basic::raise(basic::ErrorNumber::FileNotFound);
        return found->second;
    }
    void closeText() override { world.access("close"); }
    void writeText(std::string_view path, std::string_view text) override
    {
        world.access("write " + std::string{path});
        written[std::string{path}] = text;
    }
    bool exists(std::string_view path) override
    {
        world.access("exists " + std::string{path});
        return world.existing.contains(std::string{path});
    }
    void createFolder(std::string_view path) override { world.access("mkdir " + std::string{path}); }

    platform::EnvironmentValue environment(std::string_view name) override
    {
        world.access("environment " + std::string{name});
        return world.environment[std::string{name}];
    }
    std::string libraryName() override
    {
        world.access("libraryName");
        return "Servo";
    }
    float twipsPerPixelX() override
    {
        world.access("twipsPerPixelX");
        return world.twipsPerPixelX;
    }
    float twipsPerPixelY() override
    {
        world.access("twipsPerPixelY");
        return world.twipsPerPixelY;
    }
    void letEventsRun() override { }

    basic::ObjectRef load(std::string_view path) override
    {
        world.access("picture " + std::string{path});
        loading();
        const auto found = world.pictures.find(std::string{path});
        if (found == world.pictures.end()) basic::raise(basic::ErrorNumber::FileNotFound);
        return found->second;
    }
    void save(platform::Control&, std::string_view path) override
    {
        world.access("save " + std::string{path});
    }
};

// Everything that a procedure works in, for one test.
struct Surround {
    FakePlatform platform;
    display::GemeinsamerZustand zustand;
    ErrorList errors;
    display::Umfeld umfeld{platform.library(), zustand, errors};

    World& world() { return platform.world; }
    const std::vector<Report>& reports() const { return errors.reports; }
    // The accesses of one kind, "read" or "path" for example, without that word.
    std::vector<std::string> logged(std::string_view verb) const
    {
        const std::string start = std::string{verb} + " ";
        std::vector<std::string> found;
        for (const std::string& line : platform.world.log)
            if (line.starts_with(start)) found.push_back(line.substr(start.size()));
        return found;
    }
};

using Reports = std::vector<Report>;
using Texts = std::vector<std::string>;

} // namespace servopanel::testing

#pragma once

#include "platform/db_engine.h"
#include "recording/memory/failures.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::recording {

// One row of PRESET_DEFS. The columns take any value, so that a scenario can have one that does not convert.
struct DefinitionRow {
    enum Column : std::uint8_t { Type, Variable, Element, AbsMin, AbsMax, Min, Max, Pass, Count };
    std::int32_t id = 0; // never used again; it is the bookmark
    std::array<basic::Variant, Column::Count> columns;
};

struct DefinitionTable {
    std::vector<DefinitionRow> rows;
    std::int32_t lastId = 0;
};

// Databases in memory, by full path.
class MemoryDatabases {
public:
    explicit MemoryDatabases(Failures& failures)
        : failures_{failures}
    {
    }

    // Makes the file exist, with an empty table.
    void create(std::string_view path);
    void remove(std::string_view path);
    void addRow(std::string_view path, DefinitionRow row);
    // False when no row has this variable and element.
    bool removeRow(std::string_view path, std::string_view variable, const basic::Variant& element);

    std::unique_ptr<platform::Database> open(std::string_view path);

private:
    Failures& failures_;
    std::map<std::string, std::shared_ptr<DefinitionTable>> tables_;
};

} // namespace servopanel::recording

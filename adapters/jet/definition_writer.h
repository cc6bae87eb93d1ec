#pragma once

#include "jet/new_database.h"

namespace servopanel::jet {

enum class TableKind : std::uint8_t {
    User = 0x4E,
    System = 0x53,
};

// The page of a table's definition. mapPage: a page whose first rows are the table's two usage maps and, for columns
// of long values, an empty one. Error Overflow when it does not fit into one page.
Bytes tableDefinition(const NewTable& table, TableKind kind, std::uint32_t mapPage, JetVersion version);

} // namespace servopanel::jet

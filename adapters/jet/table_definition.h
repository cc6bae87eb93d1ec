#pragma once

#include "jet/file_image.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>

namespace servopanel::jet {

// What libmdb does not tell about a table, or not reliably: environment variables change the names that it finds.
struct TableDefinition {
    std::uint32_t rowCount = 0;
    std::uint16_t columnCount = 0;
    std::map<std::uint16_t, std::string> columnNames; // by the columns' numbers
    std::set<std::uint16_t> indexedColumns; // numbers of the columns that are part of any index
};

// Reads a definition that begins on this page. Error Damaged when there is none.
TableDefinition readTableDefinition(const FileImage& image, std::uint32_t page);

} // namespace servopanel::jet

#pragma once

#include "jet/file_image.h"

#include <cstdint>
#include <set>

namespace servopanel::jet {

// What libmdb does not tell, or not reliably, about a table.
struct TableDefinition {
    std::uint32_t rowCount = 0;
    std::uint16_t columnCount = 0;
    std::set<std::uint16_t> indexedColumns; // numbers of the columns that are part of any index
};

// Reads a definition that begins on this page. Error Damaged when there is none.
TableDefinition readTableDefinition(const FileImage& image, std::uint32_t page);

} // namespace servopanel::jet

#pragma once

#include "basic/variant.h"
#include "jet/file_image.h"
#include "jet/row_place.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::jet {

struct TableColumn {
    std::string name;
    ColumnType type = ColumnType::Text;
    std::uint16_t number = 0; // of its bit in a row's mask
    bool fixed = false;
    std::uint16_t fixedOffset = 0; // in the fixed area of a row
    std::uint16_t size = 0; // bytes
    bool indexed = false;
};

// One value of a row.
struct Cell {
    basic::Variant value; // exactly as stored; an ErrorCode when the type is none that the adapter reads
    std::uint16_t at = 0; // in the page, when length is not 0
    std::uint16_t length = 0;
};

struct TableRow {
    RowAddress address;
    std::vector<Cell> cells; // in the order of the columns
};

struct Table {
    std::uint32_t page = 0; // of its definition
    std::vector<TableColumn> columns;
    std::vector<TableRow> rows;

    // The position of a column, its name without regard to case; error ColumnNotFound.
    std::size_t column(std::string_view name) const;
};

// Reads a user's table with all rows, in the order in which they are stored. Errors: TableNotFound, Damaged, among them
// fewer rows than the table should have.
Table readTable(const FileImage& image, std::string_view name);

} // namespace servopanel::jet

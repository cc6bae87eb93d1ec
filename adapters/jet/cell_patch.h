#pragma once

#include "jet/table.h"

#include <cstddef>
#include <cstdint>

namespace servopanel::jet {

// New bytes for a part of a page.
struct Patch {
    std::uint32_t page = 0;
    std::size_t at = 0;
    Bytes content;
};

// What has to change in the file so that a row has this value in a column of numbers; the row keeps its length, so
// nothing else changes. Nothing is changed yet. value: of the column's type, or Null.
// Errors: RowDeleted; FieldCannotBeUpdated when an index holds the column's values, when the row is older than the
// column and has no room for it, or when the column stores numbers in the manner of texts and has none here.
std::vector<Patch> patchesFor(const FileImage& image, const Table& table, std::size_t row, std::size_t column,
    const basic::Variant& value);

} // namespace servopanel::jet

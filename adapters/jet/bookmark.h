#pragma once

#include "jet/table.h"

#include <cstdint>

namespace servopanel::jet {

// What a bookmark remembers of a row: where it is, and enough of its content to notice that another row is there now.
struct Bookmark {
    RowAddress address;
    std::uint64_t names = 0; // hash of the two names
    std::uint64_t element = 0; // hash of the element number, which the rows of one variable differ by
};

Bookmark bookmarkOf(const Table& table, std::size_t row);

// As the array of bytes that crosses the seam, and back; error TypeMismatch when it is no bookmark.
basic::Variant toBytes(const Bookmark& bookmark);
Bookmark bookmarkFrom(const basic::Variant& bytes);

} // namespace servopanel::jet

#pragma once

#include "jet/file_image.h"

#include <cstddef>
#include <cstdint>
#include <tuple>

namespace servopanel::jet {

// Where a row is stored; it stays there as long as the row is not rewritten by a program that moves it.
struct RowAddress {
    std::uint32_t page = 0;
    std::uint16_t slot = 0; // position in the row table of the page
    friend bool operator==(const RowAddress&, const RowAddress&) = default;
    friend bool operator<(const RowAddress& left, const RowAddress& right)
    {
        return std::tie(left.page, left.slot) < std::tie(right.page, right.slot);
    }
};

// The parts of a stored row, in bytes from the start of its page.
struct RowPlace {
    std::size_t start = 0;
    std::size_t fixedArea = 0; // after the number of columns
    std::size_t mask = 0; // one bit for each column, 1: not Null
    std::size_t end = 0;
    std::uint16_t columns = 0; // as many as the table had when the row was written

    bool hasColumn(std::uint16_t number) const { return number < columns; }
};

// Error RowDeleted when there is no such row now, or none of the table whose definition is on tablePage; Damaged when
// its bounds make no sense.
RowPlace placeOf(const FileImage& image, std::uint32_t tablePage, RowAddress address);

// False also for a column that the row does not have.
bool isNotNull(ByteView page, const RowPlace& row, std::uint16_t column);

} // namespace servopanel::jet

#pragma once

#include "jet/bytes.h"
#include "jet/page_format.h"

#include <cstdint>
#include <vector>

namespace servopanel::jet {

// Packs rows into as few data pages as they need, in their order. owner: the page of the table's definition, 0 for
// pages of usage maps. Error Overflow for a row that is longer than a page.
std::vector<Bytes> dataPages(const PageFormat& format, std::uint32_t owner, const std::vector<Bytes>& rows);

// A usage map of one row: a bit for each of these pages, which follow first.
Bytes usageMap(const PageFormat& format, std::uint32_t first, std::size_t pages);

} // namespace servopanel::jet

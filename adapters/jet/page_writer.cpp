#include "jet/page_writer.h"

#include <algorithm>

namespace servopanel::jet {

namespace {

constexpr std::size_t mostRows = 255;
constexpr std::size_t freeBytes = 2;
constexpr std::size_t ownerPage = 4;

Bytes emptyPage(const PageFormat& format, std::uint32_t owner)
{
    Bytes page(format.pageSize);
    page[0] = dataPage;
    page[1] = 1;
    store32(page, ownerPage, owner);
    return page;
}

} // namespace

std::vector<Bytes> dataPages(const PageFormat& format, std::uint32_t owner, const std::vector<Bytes>& rows)
{
    std::vector<Bytes> pages{emptyPage(format, owner)};
    std::size_t count = 0;
    std::size_t lowest = format.pageSize;
    for (const Bytes& row : rows) {
        const auto tableEnd = [&] { return format.rowTable + 2 * (count + 1); };
        if (count == mostRows || lowest < row.size() || lowest - row.size() < tableEnd()) {
            pages.push_back(emptyPage(format, owner));
            count = 0;
            lowest = format.pageSize;
        }
        if (lowest - tableEnd() < row.size()) raise(JetError::Overflow, "a row is longer than a page");
        lowest -= row.size();
        Bytes& page = pages.back();
        std::copy(row.begin(), row.end(), page.begin() + static_cast<std::ptrdiff_t>(lowest));
        store16(page, format.rowTable + 2 * count, static_cast<std::uint16_t>(lowest));
        ++count;
        store16(page, format.rowCount, static_cast<std::uint16_t>(count));
    }
    for (Bytes& page : pages) {
        const std::size_t filled = load16(page, format.rowCount);
        const std::size_t start =
            filled == 0 ? format.pageSize : load16(page, format.rowTable + 2 * (filled - 1));
        store16(page, freeBytes, static_cast<std::uint16_t>(start - format.rowTable - 2 * filled));
    }
    return pages;
}

Bytes usageMap(const PageFormat& format, std::uint32_t first, std::size_t pages)
{
    if (pages > format.mapBytes * 8)
        raise(JetError::Overflow, "there are more rows than a new file can have");
    Bytes map(5 + format.mapBytes);
    store32(map, 1, first);
    for (std::size_t i = 0; i < pages; ++i)
        map[5 + i / 8] = static_cast<std::uint8_t>(map[5 + i / 8] | (1U << (i % 8)));
    return map;
}

} // namespace servopanel::jet

#include "jet/row_place.h"

namespace servopanel::jet {

namespace {

constexpr std::size_t ownerPage = 4;

[[noreturn]] void raiseGone() { raise(JetError::RowDeleted, "the row is gone"); }

} // namespace

RowPlace placeOf(const FileImage& image, std::uint32_t tablePage, RowAddress address)
{
    const PageFormat& format = image.format();
    if (address.page == 0 || address.page >= image.pageCount()) raiseGone();
    const ByteView page = image.page(address.page);
    if (page[0] != dataPage || load32(page, ownerPage) != tablePage) raiseGone();
    const std::uint16_t rows = load16(page, format.rowCount);
    if (address.slot >= rows) raiseGone();
    const std::size_t entry = format.rowTable + std::size_t{2} * address.slot;
    const std::uint16_t offset = load16(page, entry);
    if ((offset & rowMovedFlag) != 0) raiseGone();

    RowPlace place;
    place.start = offset & rowStartMask;
    // Rows fill the page from its end: each one ends where the one before it starts.
    place.end = address.slot == 0 ? format.pageSize : load16(page, entry - 2) & rowStartMask;
    const std::size_t tableEnd = format.rowTable + std::size_t{2} * rows;
    if (place.start < tableEnd || place.end > format.pageSize
        || place.start + format.columnCountSize >= place.end)
        raiseDamaged("the bounds of the row make no sense");
    place.columns = format.columnCountSize == 1 ? load8(page, place.start) : load16(page, place.start);
    place.fixedArea = place.start + format.columnCountSize;
    const std::size_t maskSize = (place.columns + 7U) / 8U;
    if (place.columns == 0 || place.fixedArea + maskSize > place.end)
        raiseDamaged("the bounds of the row make no sense");
    place.mask = place.end - maskSize;
    return place;
}

bool isNotNull(ByteView page, const RowPlace& row, std::uint16_t column)
{
    return row.hasColumn(column) && ((page[row.mask + column / 8U] >> (column % 8U)) & 1U) != 0;
}

} // namespace servopanel::jet

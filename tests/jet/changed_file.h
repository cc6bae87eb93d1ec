#pragma once

#include "jet/definition_table.h"
#include "jet/file_image.h"

#include <algorithm>
#include <initializer_list>

namespace servopanel::jet::testing {

// Where the databases that the tests make have their table.
inline constexpr std::uint32_t definitionAt = 5;
inline constexpr std::uint32_t mapsAt = 6;
inline constexpr std::uint32_t firstRowsAt = 7;

// Does to a database in memory what other programs, or a failing disk, do to the file.
class ChangedFile {
public:
    explicit ChangedFile(Bytes bytes)
        : image_{std::move(bytes)}
    {
    }

    const Bytes& bytes() const { return image_.bytes(); }
    const PageFormat& format() const { return image_.format(); }
    FileImage& image() { return image_; }

    void put(std::uint32_t page, std::size_t at, std::uint64_t value, std::size_t size)
    {
        Bytes content;
        append(content, value, size);
        image_.change(page, at, content);
    }
    std::uint16_t get16(std::uint32_t page, std::size_t at) const { return load16(image_.page(page), at); }
    std::uint32_t get32(std::uint32_t page, std::size_t at) const { return load32(image_.page(page), at); }

    void setRowCount(std::uint32_t count) { put(definitionAt, format().tableRowCount, count, 4); }

    // A deleted row keeps its place in the table of its page.
    void deleteRow(RowAddress row)
    {
        const std::size_t entry = entryOf(row.slot);
        put(row.page, entry, get16(row.page, entry) | rowMovedFlag | rowElsewhereFlag, 2);
        setRowCount(get32(definitionAt, format().tableRowCount) - 1);
    }

    // A row that has grown is stored on another page with room and leaves a pointer behind. Gives its new place.
    RowAddress moveRow(RowAddress row, std::uint32_t toPage)
    {
        const RowPlace place = placeOf(image_, definitionAt, row);
        const ByteView old = part(image_.page(row.page), place.start, place.end - place.start);
        const Bytes content{old.begin(), old.end()};
        const std::uint16_t rows = get16(toPage, format().rowCount);
        const std::size_t lowest = rows == 0
            ? format().pageSize
            : get16(toPage, entryOf(static_cast<std::uint16_t>(rows - 1))) & rowStartMask;
        const std::size_t start = lowest - content.size();
        if (start < entryOf(static_cast<std::uint16_t>(rows + 1))) throw std::runtime_error{"no room"};
        image_.change(toPage, start, content);
        put(toPage, entryOf(rows), start | rowElsewhereFlag, 2);
        put(toPage, format().rowCount, rows + 1U, 2);
        put(row.page, place.start, (std::uint64_t{toPage} << 8U) | rows, 4);
        put(row.page, entryOf(row.slot), place.start | rowMovedFlag, 2);
        return {toPage, rows};
    }

    // Makes the columns with these numbers part of an index.
    void addIndex(std::initializer_list<std::uint16_t> columns)
    {
        const ByteView old = image_.page(definitionAt);
        Bytes definition{old.begin(), old.end()};
        const auto end = static_cast<std::ptrdiff_t>(load32(definition, 8)) - 2;
        Bytes entry(format().indexEntrySize);
        for (std::size_t k = 0; k < 10; ++k)
            store16(entry, format().indexColumns + 3 * k, k < columns.size() ? columns.begin()[k] : 0xFFFF);
        definition.insert(definition.begin() + end, entry.begin(), entry.end());
        definition.insert(definition.begin() + static_cast<std::ptrdiff_t>(format().tableEntries),
            format().indexCountEntrySize, 0);
        store32(definition, format().tableIndexes, 1);
        definition.resize(format().pageSize);
        image_.change(definitionAt, 0, definition);
    }

private:
    std::size_t entryOf(std::uint16_t slot) const { return format().rowTable + 2U * slot; }

    FileImage image_;
};

} // namespace servopanel::jet::testing

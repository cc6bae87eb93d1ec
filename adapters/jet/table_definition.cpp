#include "jet/table_definition.h"

#include "jet/text_coding.h"

namespace servopanel::jet {

namespace {

constexpr std::uint16_t mostColumns = 255;
constexpr std::uint32_t mostIndexes = 64; // twice what the formats allow
constexpr std::size_t mostPages = 64;
constexpr std::size_t columnsInIndex = 10;
constexpr std::uint16_t noColumn = 0xFFFF;

// The definition in one piece, its further pages without their heads.
Bytes wholeDefinition(const FileImage& image, std::uint32_t pageNumber)
{
    Bytes whole;
    for (std::size_t pages = 0; pageNumber != 0; ++pages) {
        const ByteView page = image.page(pageNumber);
        if (page[0] != definitionPage || pages == mostPages)
            raiseDamaged("page " + std::to_string(pageNumber) + " is no definition of a table");
        const ByteView content = whole.empty() ? page : page.subspan(definitionHead);
        whole.insert(whole.end(), content.begin(), content.end());
        pageNumber = load32(page, definitionNextPage);
    }
    return whole;
}

} // namespace

TableDefinition readTableDefinition(const FileImage& image, std::uint32_t page)
{
    const PageFormat& format = image.format();
    const Bytes bytes = wholeDefinition(image, page);
    if (bytes.empty()) raiseDamaged("a table has no definition");
    TableDefinition definition;
    definition.rowCount = load32(bytes, format.tableRowCount);
    definition.columnCount = load16(bytes, format.tableColumns);
    const std::uint32_t indexes = load32(bytes, format.tableIndexes);
    if (definition.columnCount > mostColumns || indexes > mostIndexes)
        raiseDamaged("a table has more columns or indexes than there can be");

    // Columns, then their names, then the indexes.
    std::size_t entry = format.tableEntries + indexes * format.indexCountEntrySize;
    std::size_t at = entry + definition.columnCount * format.columnEntrySize;
    const TextDecoder decoder{format.version, image.codePage()};
    for (std::uint16_t i = 0; i < definition.columnCount; ++i, entry += format.columnEntrySize) {
        const std::size_t length = format.nameLengthSize == 1 ? load8(bytes, at) : load16(bytes, at);
        const ByteView name = part(bytes, at + format.nameLengthSize, length);
        definition.columnNames[load16(bytes, entry + format.columnNumber)] = decoder.decode(name);
        at += format.nameLengthSize + length;
    }
    for (std::uint32_t i = 0; i < indexes; ++i, at += format.indexEntrySize) {
        for (std::size_t k = 0; k < columnsInIndex; ++k) {
            const std::uint16_t column = load16(bytes, at + format.indexColumns + 3 * k);
            if (column != noColumn) definition.indexedColumns.insert(column);
        }
    }
    return definition;
}

} // namespace servopanel::jet

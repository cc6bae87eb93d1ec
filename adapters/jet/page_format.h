#pragma once

#include <cstddef>
#include <cstdint>

namespace servopanel::jet {

enum class JetVersion : std::uint8_t {
    Jet3 = 0,
    Jet4 = 1,
};

// Where the two formats keep things. All positions are bytes from the start of the page, or of the whole table
// definition, or of a column's entry in it.
struct PageFormat {
    JetVersion version;
    std::size_t pageSize;

    // Data pages
    std::size_t rowCount;
    std::size_t rowTable; // 2 bytes for each row: where it starts, and flags
    std::size_t columnCountSize; // bytes of the number of columns at the start of a row
    std::size_t variableOffsetSize; // bytes of each offset, and of their number, in the end of a row

    // Table definitions
    std::size_t tableRowCount;
    std::size_t tableKind;
    std::size_t tableColumnsEver;
    std::size_t tableVariableColumns;
    std::size_t tableColumns;
    std::size_t tableLogicalIndexes;
    std::size_t tableIndexes;
    std::size_t tableOwnedPages;
    std::size_t tableFreePages;
    std::size_t tableEntries; // entries of the indexes' row counts, then those of the columns
    std::size_t indexCountEntrySize;
    std::size_t columnEntrySize;
    std::size_t columnNumber;
    std::size_t columnVariableIndex;
    std::size_t columnNumberAgain;
    std::size_t columnSortOrder;
    std::size_t columnFlags;
    std::size_t columnFixedOffset;
    std::size_t columnLength;
    std::size_t nameLengthSize;
    std::size_t indexEntrySize;
    std::size_t indexColumns; // ten times: 2 bytes column number or FFFF, 1 byte order

    // Page 0 and maps
    std::size_t headerCodedSize;
    std::size_t mapBytes; // of a usage map that is kept in one row; 8 pages in each byte
};

inline constexpr PageFormat jet3Format{
    .version = JetVersion::Jet3,
    .pageSize = 2048,
    .rowCount = 8,
    .rowTable = 10,
    .columnCountSize = 1,
    .variableOffsetSize = 1,
    .tableRowCount = 12,
    .tableKind = 20,
    .tableColumnsEver = 21,
    .tableVariableColumns = 23,
    .tableColumns = 25,
    .tableLogicalIndexes = 27,
    .tableIndexes = 31,
    .tableOwnedPages = 35,
    .tableFreePages = 39,
    .tableEntries = 43,
    .indexCountEntrySize = 8,
    .columnEntrySize = 18,
    .columnNumber = 1,
    .columnVariableIndex = 3,
    .columnNumberAgain = 5,
    .columnSortOrder = 9,
    .columnFlags = 13,
    .columnFixedOffset = 14,
    .columnLength = 16,
    .nameLengthSize = 1,
    .indexEntrySize = 39,
    .indexColumns = 0,
    .headerCodedSize = 126,
    .mapBytes = 128,
};

inline constexpr PageFormat jet4Format{
    .version = JetVersion::Jet4,
    .pageSize = 4096,
    .rowCount = 12,
    .rowTable = 14,
    .columnCountSize = 2,
    .variableOffsetSize = 2,
    .tableRowCount = 16,
    .tableKind = 40,
    .tableColumnsEver = 41,
    .tableVariableColumns = 43,
    .tableColumns = 45,
    .tableLogicalIndexes = 47,
    .tableIndexes = 51,
    .tableOwnedPages = 55,
    .tableFreePages = 59,
    .tableEntries = 63,
    .indexCountEntrySize = 12,
    .columnEntrySize = 25,
    .columnNumber = 5,
    .columnVariableIndex = 7,
    .columnNumberAgain = 9,
    .columnSortOrder = 11,
    .columnFlags = 15,
    .columnFixedOffset = 21,
    .columnLength = 23,
    .nameLengthSize = 2,
    .indexEntrySize = 52,
    .indexColumns = 4,
    .headerCodedSize = 128,
    .mapBytes = 64,
};

constexpr const PageFormat& formatOf(JetVersion version)
{
    return version == JetVersion::Jet3 ? jet3Format : jet4Format;
}

// First byte of a page.
inline constexpr std::uint8_t dataPage = 1;
inline constexpr std::uint8_t definitionPage = 2;

// Bytes at the start of a page of a table definition; on its further pages they are not part of it.
inline constexpr std::size_t definitionHead = 8;
inline constexpr std::size_t definitionNextPage = 4;

// Entries of a data page's row table.
inline constexpr std::uint16_t rowStartMask = 0x1FFF;
inline constexpr std::uint16_t rowMovedFlag =
    0x4000; // a pointer to the row, or with the other flag a deleted row
inline constexpr std::uint16_t rowElsewhereFlag = 0x8000; // the row that a pointer leads to

// Page 0.
inline constexpr std::size_t headerVersion = 0x14;
inline constexpr std::size_t headerCoded = 0x18;
inline constexpr std::uint32_t headerKey = 0x6B39DAC7;
inline constexpr std::size_t headerCodePage = 0x3C;
inline constexpr std::size_t headerDatabaseKey = 0x3E;

// The table that lists all others is always here.
inline constexpr std::uint32_t catalogPage = 2;
inline constexpr std::uint32_t catalogPageMask = 0x00FFFFFF; // of its column Id
inline constexpr std::uint16_t windows1252 = 1252;

// Column flags and types.
inline constexpr std::uint8_t columnIsFixed = 1;
inline constexpr std::uint8_t columnIsNullable = 2;
inline constexpr std::uint8_t columnIsSystem = 0x10;

enum class ColumnType : std::uint8_t {
    Boolean = 1,
    Byte = 2,
    Int16 = 3,
    Int32 = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    Date = 8,
    Binary = 9,
    Text = 10,
    Ole = 11,
    Memo = 12,
    Guid = 15,
    Numeric = 16,
};

} // namespace servopanel::jet

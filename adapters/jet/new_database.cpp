#include "jet/new_database.h"

#include "jet/definition_writer.h"
#include "jet/page_writer.h"
#include "jet/rc4.h"
#include "jet/row_coding.h"

#include <algorithm>
#include <string_view>

namespace servopanel::jet {

namespace {

// A fixed day, 1 January 2000, so that the same rows give the same file.
constexpr basic::Date creationDate{36526.0};

constexpr std::uint32_t freePagesPage = 1;
constexpr std::uint32_t catalogMapPage = 3;
constexpr std::uint32_t catalogRowsPage = 4;
constexpr std::uint32_t tablePage = 5;
constexpr std::uint32_t tableMapPage = 6;
constexpr std::uint32_t tableRowsPage = 7;

Bytes headerPage(const NewDatabaseOptions& options)
{
    const PageFormat& format = formatOf(options.version);
    const bool isJet4 = options.version == JetVersion::Jet4;
    constexpr std::string_view signature{"\0\1\0\0Standard Jet DB\0", 20};
    Bytes page(format.pageSize);
    std::copy(signature.begin(), signature.end(), page.begin());
    page[headerVersion] = static_cast<std::uint8_t>(options.version);
    store32(page, 0x18, freePagesPage << 8U);
    store32(page, 0x1C, (freePagesPage << 8U) | 1U);
    for (std::uint32_t i = 0; i < 4; ++i)
        store32(page, 0x20 + 4 * i, catalogPage + i);
    constexpr std::uint16_t sortOrder = 0x0409;
    store16(page, 0x3A, sortOrder);
    store16(page, headerCodePage, options.codePage);
    store32(page, headerDatabaseKey, options.key);
    if (isJet4) {
        // These forty bytes mean: no password.
        for (std::size_t i = 0; i < 10; ++i)
            store32(page, 0x42 + 4 * i, static_cast<std::uint32_t>(creationDate.days));
        store32(page, 0x6E, sortOrder);
        storeDouble(page, 0x72, creationDate.days);
    }
    rc4(headerKey, std::span{page}.subspan(headerCoded, format.headerCodedSize));
    if (isJet4) {
        store32(page, 0x98, 0x0654);
        constexpr std::string_view release{"4.0"};
        std::copy(release.begin(), release.end(), page.begin() + 0x9C);
    }
    // One pair for each user who could have the file open: nobody has.
    for (std::size_t i = 0; i < 256; ++i)
        page[(isJet4 ? 0xE00U : 0x600U) + 2 * i + 1] = 1;
    return page;
}

NewColumn catalogColumn(std::string name, ColumnType type, std::uint16_t length = 0)
{
    return {std::move(name), type, length, false};
}

NewTable catalogOf(const std::string& tableName, JetVersion version)
{
    constexpr std::uint16_t textLength = 255;
    const std::uint16_t binaryLength = version == JetVersion::Jet4 ? 510 : 255;
    NewTable catalog{"MSysObjects",
        {catalogColumn("Id", ColumnType::Int32), catalogColumn("ParentId", ColumnType::Int32),
            catalogColumn("Name", ColumnType::Text, textLength), catalogColumn("Type", ColumnType::Int16),
            catalogColumn("DateCreate", ColumnType::Date), catalogColumn("DateUpdate", ColumnType::Date),
            catalogColumn("Owner", ColumnType::Binary, binaryLength),
            catalogColumn("Flags", ColumnType::Int32), catalogColumn("Database", ColumnType::Memo),
            catalogColumn("Connect", ColumnType::Memo),
            catalogColumn("ForeignName", ColumnType::Text, textLength),
            catalogColumn("RmtInfoShort", ColumnType::Binary, binaryLength),
            catalogColumn("RmtInfoLong", ColumnType::Ole), catalogColumn("Lv", ColumnType::Ole),
            catalogColumn("LvProp", ColumnType::Ole), catalogColumn("LvModule", ColumnType::Ole),
            catalogColumn("LvExtra", ColumnType::Ole)},
        {}};

    constexpr std::int32_t root = 0x0F000000;
    constexpr std::int32_t tables = root + 1;
    constexpr std::int16_t typeTable = 1;
    constexpr std::int16_t typeContainer = 3;
    constexpr std::int32_t systemObject = INT32_MIN;
    const auto add = [&](std::int32_t id, std::int32_t parent, const std::string& name, std::int16_t type,
                         std::int32_t flags) {
        std::vector<basic::Variant> row(catalog.columns.size(), basic::Null{});
        row[0] = id;
        row[1] = parent;
        row[2] = name;
        row[3] = type;
        row[4] = creationDate;
        row[5] = creationDate;
        row[7] = flags;
        catalog.rows.push_back(std::move(row));
    };
    add(tables, root, "Tables", typeContainer, systemObject);
    add(root + 2, root, "Databases", typeContainer, systemObject);
    add(root + 3, root, "Relationships", typeContainer, systemObject);
    add(static_cast<std::int32_t>(catalogPage), tables, catalog.name, typeTable, systemObject);
    add(static_cast<std::int32_t>(tablePage), tables, tableName, typeTable, 0);
    return catalog;
}

std::vector<Bytes> encodeRows(const NewTable& table, const NewDatabaseOptions& options)
{
    std::vector<Bytes> rows;
    for (const std::vector<basic::Variant>& cells : table.rows) {
        try {
            rows.push_back(encodeRow(table.columns, cells, options));
        } catch (const basic::Error& error) {
            throw basic::Error{error.number, error.source,
                "row " + std::to_string(rows.size() + 1) + ": " + error.description};
        }
    }
    return rows;
}

// Maps of a table whose rows fill these pages; only its last page has room.
Bytes mapPage(const PageFormat& format, std::uint32_t first, std::size_t pages)
{
    const std::uint32_t last = first + static_cast<std::uint32_t>(pages) - 1;
    return dataPages(
        format, 0, {usageMap(format, first, pages), usageMap(format, last, 1), usageMap(format, 0, 0)})
        .front();
}

} // namespace

Bytes newDatabase(const NewTable& table, const NewDatabaseOptions& options)
{
    const PageFormat& format = formatOf(options.version);
    NewDatabaseOptions catalogOptions = options;
    catalogOptions.textForm = TextForm::Plain;
    const NewTable catalog = catalogOf(table.name, options.version);
    std::vector<Bytes> catalogPages = dataPages(format, catalogPage, encodeRows(catalog, catalogOptions));
    if (catalogPages.size() != 1) raise(JetError::Overflow, "the name of the table is too long");
    const std::vector<Bytes> rowPages = dataPages(format, tablePage, encodeRows(table, options));

    std::vector<Bytes> pages;
    pages.push_back(headerPage(options));
    pages.push_back(
        dataPages(format, freePagesPage, {usageMap(format, 0, 0), usageMap(format, 0, 0)}).front());
    pages.push_back(tableDefinition(catalog, TableKind::System, catalogMapPage, options.version));
    pages.push_back(mapPage(format, catalogRowsPage, 1));
    pages.push_back(std::move(catalogPages.front()));
    pages.push_back(tableDefinition(table, TableKind::User, tableMapPage, options.version));
    pages.push_back(mapPage(format, tableRowsPage, rowPages.size()));
    pages.insert(pages.end(), rowPages.begin(), rowPages.end());

    Bytes file;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        if (options.key != 0 && i != 0) rc4(options.key ^ static_cast<std::uint32_t>(i), pages[i]);
        file.insert(file.end(), pages[i].begin(), pages[i].end());
    }
    return file;
}

} // namespace servopanel::jet

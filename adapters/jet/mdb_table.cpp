#include "jet/mdb_table.h"

#include "jet/table.h"

// glib's header has to come first: the other one includes it inside extern "C", where it does not compile.
#include <glib.h>

#include <mdbtools.h>

#include <cstring>

namespace servopanel::jet {

namespace {

constexpr std::size_t smallestMap = 6; // type, first page, and one byte of pages
constexpr unsigned char newestMapType = 1;

struct CloseHandle {
    void operator()(MdbHandle* handle) const { ::mdb_close(handle); }
};
struct FreeTable {
    void operator()(MdbTableDef* table) const { ::mdb_free_tabledef(table); }
};

} // namespace

struct MdbTable::Handles {
    MdbCatalogEntry entry{};
    std::unique_ptr<MdbHandle, CloseHandle> database;
    std::unique_ptr<MdbTableDef, FreeTable> table; // goes before the database

    const MdbColumn& column(std::size_t i) const
    {
        return *static_cast<const MdbColumn*>(g_ptr_array_index(table->columns, i));
    }
};

MdbTable::MdbTable(const FileImage& image, std::uint32_t page)
    : handles_{std::make_unique<Handles>()}
{
    // Opened for reading only, so the buffer stays as it is.
    void* bytes =
        const_cast<std::uint8_t*>(image.bytes().data()); // NOLINT(cppcoreguidelines-pro-type-const-cast)
    handles_->database.reset(::mdb_open_buffer(bytes, image.bytes().size(), MDB_NOFLAGS));
    if (!handles_->database) raise(JetError::UnknownFormat, "it is no Jet database");
    MdbCatalogEntry& entry = handles_->entry;
    entry.mdb = handles_->database.get();
    std::strcpy(entry.object_name, "table"); // NOLINT(clang-analyzer-security.insecureAPI.strcpy): it fits
    entry.object_type = MDB_TABLE;
    entry.table_pg = page;
    handles_->table.reset(::mdb_read_table(&entry));
    MdbTableDef* table = handles_->table.get();
    if (!table) raiseDamaged("page " + std::to_string(page) + " is no definition of a table");
    // Without these an empty map would crash libmdb and an unknown one make it take pages that are not the table's.
    if (table->map_sz < smallestMap || table->usage_map[0] > newestMapType)
        raiseDamaged("the list of a table's pages is broken");
    if (!::mdb_read_columns(table)) raiseDamaged("the columns of a table cannot be read");
    // After a crash of the writing program the count can be 0 though there are rows, and then libmdb would not look.
    if (table->num_rows == 0) table->num_rows = 1;
    ::mdb_rewind_table(table);
}

MdbTable::~MdbTable() = default;

std::vector<TableColumn> MdbTable::columns() const
{
    std::vector<TableColumn> columns;
    for (std::size_t i = 0; i < handles_->table->num_cols; ++i) {
        const MdbColumn& column = handles_->column(i);
        columns.push_back(
            {"", static_cast<ColumnType>(column.col_type), static_cast<std::uint16_t>(column.col_num),
                column.is_fixed != 0, static_cast<std::uint16_t>(column.fixed_offset),
                static_cast<std::uint16_t>(column.col_size), false});
    }
    return columns;
}

std::optional<RowAddress> MdbTable::nextRow()
{
    MdbTableDef* table = handles_->table.get();
    if (::mdb_fetch_row(table) == 0) return std::nullopt;
    return RowAddress{table->cur_phys_pg, static_cast<std::uint16_t>(table->cur_row - 1)};
}

MdbSpan MdbTable::span(std::size_t column) const
{
    const MdbColumn& found = handles_->column(column);
    return {found.cur_value_start, found.cur_value_len};
}

} // namespace servopanel::jet

#pragma once

#include "jet/file_image.h"
#include "jet/row_place.h"

#include <memory>
#include <optional>
#include <vector>

namespace servopanel::jet {

struct TableColumn;

// Where libmdb found a value in the page of the current row. Not checked yet.
struct MdbSpan {
    int start = 0;
    int length = 0;
};

// A table walked by libmdb. Its own catalogue reader is left out on purpose: it never ends on some damaged files.
class MdbTable {
public:
    // The image lives longer than this. Error Damaged when there is no such table.
    MdbTable(const FileImage& image, std::uint32_t page);
    MdbTable(const MdbTable&) = delete;
    MdbTable& operator=(const MdbTable&) = delete;
    ~MdbTable();

    // Without their names, which environment variables have an influence on here.
    std::vector<TableColumn> columns() const;

    // Goes to the next row, nothing after the last. Deleted rows are passed over; a row that was moved comes where it
    // is stored now.
    std::optional<RowAddress> nextRow();
    // Of the current row, for the column at this position of columns().
    MdbSpan span(std::size_t column) const;

private:
    struct Handles; // keeps libmdb's header, and the macros in it, out of this one
    std::unique_ptr<Handles> handles_;
};

} // namespace servopanel::jet

#pragma once

#include "basic/variant.h"
#include "jet/bytes.h"
#include "jet/page_format.h"
#include "jet/text_coding.h"

#include <cstdint>
#include <string>
#include <vector>

namespace servopanel::jet {

// A column of a table to be made.
struct NewColumn {
    std::string name;
    ColumnType type = ColumnType::Text;
    std::uint16_t length = 0; // characters of a text, bytes of a binary; the other types have their own
    bool variable = false; // a number that is stored like a text, as some programs do it
};

// A table to be made. Cells: Null, or exactly the type of the column.
struct NewTable {
    std::string name;
    std::vector<NewColumn> columns;
    std::vector<std::vector<basic::Variant>> rows; // shorter ones end before columns that the table got later
};

struct NewDatabaseOptions {
    JetVersion version = JetVersion::Jet4;
    std::uint32_t key = 0; // other than 0: the pages are encoded with it
    TextForm textForm = TextForm::Plain;
    std::uint16_t codePage = windows1252; // what the header says; texts are written in Windows-1252
};

// The bytes of a new database with one table. The same input gives the same bytes. Errors: TypeMismatch for a value
// that its column cannot hold, with the number of the row; Overflow for more rows than fit.
//
// Everything that readers of the format look at is there; what only a database engine needs to change the structure
// of a database (tables of its own beside the catalogue, and the indexes of the catalogue) is not.
Bytes newDatabase(const NewTable& table, const NewDatabaseOptions& options);

} // namespace servopanel::jet

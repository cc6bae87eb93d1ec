#pragma once

#include "jet/new_database.h"

namespace servopanel::jet {

// Bytes that a column takes in the fixed area of a row; 0 for variable columns and Booleans.
std::size_t fixedSize(const NewColumn& column);
bool isVariable(const NewColumn& column);

// A row as it is stored. It may have fewer cells than there are columns. Error TypeMismatch for a value that its column
// cannot hold.
Bytes encodeRow(const std::vector<NewColumn>& columns, const std::vector<basic::Variant>& cells,
    const NewDatabaseOptions& options);

} // namespace servopanel::jet

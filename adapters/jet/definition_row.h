#pragma once

#include "basic/variant.h"
#include "jet/new_database.h"

#include <string>
#include <vector>

namespace servopanel::jet {

// One parameter definition. Each value is exactly of the type in its comment, or Null.
struct DefinitionRow {
    basic::Variant machineType; // text, 255 characters at most
    basic::Variant variable; // text, 255 characters at most
    basic::Variant absMax; // double
    basic::Variant absMin; // double
    basic::Variant element; // 16 bits: offset_or_bitno
    basic::Variant max; // double
    basic::Variant min; // double
    basic::Variant pass; // 16 bits

    friend bool operator==(const DefinitionRow&, const DefinitionRow&) = default;
};

// Error TypeMismatch when a new database cannot hold this definition.
void requireStorable(const DefinitionRow& row, const NewDatabaseOptions& options = {});

// The bytes of a new database that holds these definitions in this order. Error TypeMismatch with the number of a row
// that cannot be stored, Overflow for more rows than a new file can have (about 14000).
Bytes newDefinitionDatabase(const std::vector<DefinitionRow>& rows, const NewDatabaseOptions& options = {});

} // namespace servopanel::jet

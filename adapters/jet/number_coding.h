#pragma once

#include "basic/variant.h"
#include "jet/bytes.h"
#include "jet/page_format.h"

namespace servopanel::jet {

// Bytes of a number of this type, 0 for all that is no number.
std::size_t numberSize(ColumnType type);

// The type of the values that a column of numbers holds; Text for columns of other types.
basic::VariantType variantType(ColumnType type);

// A number as it is stored, and back. The value has exactly the column's type (error TypeMismatch), the bytes its size.
Bytes encodeNumber(ColumnType type, const basic::Variant& value);
basic::Variant decodeNumber(ColumnType type, ByteView stored);

} // namespace servopanel::jet

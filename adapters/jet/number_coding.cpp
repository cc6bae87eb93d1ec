#include "jet/number_coding.h"

#include <bit>

namespace servopanel::jet {

std::size_t numberSize(ColumnType type)
{
    switch (type) {
    case ColumnType::Byte: return 1;
    case ColumnType::Int16: return 2;
    case ColumnType::Int32:
    case ColumnType::Single: return 4;
    case ColumnType::Currency:
    case ColumnType::Double:
    case ColumnType::Date: return 8;
    default: return 0;
    }
}

basic::VariantType variantType(ColumnType type)
{
    switch (type) {
    case ColumnType::Boolean: return basic::VariantType::Boolean;
    case ColumnType::Byte: return basic::VariantType::Byte;
    case ColumnType::Int16: return basic::VariantType::Int16;
    case ColumnType::Int32: return basic::VariantType::Int32;
    case ColumnType::Single: return basic::VariantType::Single;
    case ColumnType::Currency: return basic::VariantType::Currency;
    case ColumnType::Double: return basic::VariantType::Double;
    case ColumnType::Date: return basic::VariantType::Date;
    default: return basic::VariantType::Text;
    }
}

Bytes encodeNumber(ColumnType type, const basic::Variant& value)
{
    if (numberSize(type) == 0 || value.type() != variantType(type))
        raise(JetError::TypeMismatch, "a value has not the type of its column");
    std::uint64_t bits = 0;
    switch (type) {
    case ColumnType::Byte: bits = *value.get<std::uint8_t>(); break;
    case ColumnType::Int16: bits = static_cast<std::uint64_t>(*value.get<std::int16_t>()); break;
    case ColumnType::Int32: bits = static_cast<std::uint64_t>(*value.get<std::int32_t>()); break;
    case ColumnType::Single: bits = std::bit_cast<std::uint32_t>(*value.get<float>()); break;
    case ColumnType::Currency: bits = static_cast<std::uint64_t>(value.get<basic::Currency>()->scaled); break;
    case ColumnType::Double: bits = std::bit_cast<std::uint64_t>(*value.get<double>()); break;
    default: bits = std::bit_cast<std::uint64_t>(value.get<basic::Date>()->days); break;
    }
    Bytes stored;
    append(stored, bits, numberSize(type));
    return stored;
}

basic::Variant decodeNumber(ColumnType type, ByteView stored)
{
    switch (type) {
    case ColumnType::Byte: return load8(stored, 0);
    case ColumnType::Int16: return static_cast<std::int16_t>(load16(stored, 0));
    case ColumnType::Int32: return static_cast<std::int32_t>(load32(stored, 0));
    case ColumnType::Single: return std::bit_cast<float>(load32(stored, 0));
    case ColumnType::Currency:
        return basic::Currency{static_cast<std::int64_t>(load<std::uint64_t>(stored, 0))};
    case ColumnType::Double: return std::bit_cast<double>(load<std::uint64_t>(stored, 0));
    case ColumnType::Date: return basic::Date{std::bit_cast<double>(load<std::uint64_t>(stored, 0))};
    default: raise(JetError::TypeMismatch, "a column holds no numbers");
    }
}

} // namespace servopanel::jet

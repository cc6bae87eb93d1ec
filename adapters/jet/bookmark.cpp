#include "jet/bookmark.h"

#include "basic/conversions.h"
#include "jet/definition_table.h"

#include <string>

namespace servopanel::jet {

namespace {

constexpr std::size_t size = 4 + 2 + 8 + 8;

// FNV-1a, 64 bits.
std::uint64_t hash(std::string_view text)
{
    std::uint64_t value = 0xCBF29CE484222325;
    for (const char c : text)
        value = (value ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    return value;
}

std::string textOf(const Table& table, std::size_t row, std::string_view column)
{
    const basic::Variant& value = table.rows[row].cells[table.column(column)].value;
    // Null and an empty text are different values.
    if (value.holds<basic::Null>() || value.holds<basic::ErrorCode>()) return "?";
    return "=" + basic::toText(value);
}

} // namespace

Bookmark bookmarkOf(const Table& table, std::size_t row)
{
    const std::string names =
        textOf(table, row, machineTypeColumn) + '\0' + textOf(table, row, variableColumn);
    return {table.rows[row].address, hash(names), hash(textOf(table, row, elementColumn))};
}

basic::Variant toBytes(const Bookmark& bookmark)
{
    Bytes bytes;
    append(bytes, bookmark.address.page, 4);
    append(bytes, bookmark.address.slot, 2);
    append(bytes, bookmark.names, 8);
    append(bytes, bookmark.element, 8);
    return basic::Array{basic::VariantType::Byte, 0, {bytes.begin(), bytes.end()}};
}

Bookmark bookmarkFrom(const basic::Variant& value)
{
    const auto* array = value.get<basic::Array>();
    if (!array || array->elements.size() != size)
        raise(JetError::TypeMismatch, "this is no bookmark of a row");
    Bytes bytes;
    for (const basic::Variant& element : array->elements)
        bytes.push_back(basic::toByte(element));
    return {
        {load32(bytes, 0), load16(bytes, 4)}, load<std::uint64_t>(bytes, 6), load<std::uint64_t>(bytes, 14)};
}

} // namespace servopanel::jet

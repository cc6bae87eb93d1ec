#include "jet/servo_defs/definition_list.h"

#include "basic/conversions.h"
#include "jet/definition_table.h"
#include "jet/disk_file.h"
#include "jet/file_kind.h"
#include "jet/names.h"
#include "jet/servo_defs/named_errors.h"
#include "portable/csv.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

namespace servopanel::jet {

namespace {

using portable::CsvCell;
using portable::CsvLine;

constexpr std::size_t elementPosition = 4;
constexpr std::size_t passPosition = 7;

bool isText(std::size_t column) { return column < 2; }
bool isInteger(std::size_t column) { return column == elementPosition || column == passPosition; }

template <class T>
std::string shortest(T number)
{
    char buffer[32];
    const auto result = std::to_chars(std::begin(buffer), std::end(buffer), number);
    return {std::begin(buffer), result.ptr};
}

std::string currencyText(basic::Currency value)
{
    constexpr std::uint64_t unit = 10000;
    const bool negative = value.scaled < 0;
    const auto bits = static_cast<std::uint64_t>(value.scaled);
    const std::uint64_t amount = negative ? 0 - bits : bits;
    std::string fraction = std::to_string(unit + amount % unit).substr(1);
    while (!fraction.empty() && fraction.back() == '0')
        fraction.pop_back();
    return (negative ? "-" : "") + std::to_string(amount / unit) + (fraction.empty() ? "" : "." + fraction);
}

template <class T>
T parsed(std::string_view text, std::string_view column)
{
    std::string_view digits = text;
    if (digits.substr(0, 1) == "+" && digits.substr(1, 1) != "-") digits.remove_prefix(1);
    T number{};
    const char* end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, number);
    const bool isWhole = result.ec == std::errc{} && result.ptr == end;
    if (!isWhole || !std::isfinite(static_cast<double>(number)))
        raise(JetError::TypeMismatch,
            "'" + std::string{text} + "' cannot be a value of column '" + std::string{column} + "'");
    return number;
}

basic::Variant cellValue(const CsvCell& cell, std::size_t column)
{
    if (!cell) return basic::Null{};
    if (isText(column)) return portable::withFormula(*cell);
    if (isInteger(column)) {
        // 3.0 is a whole number too.
        const double number = parsed<double>(*cell, csvColumns[column]);
        if (number >= -32768 && number <= 32767 && number == basic::roundToInt16(number))
            return basic::roundToInt16(number);
        return parsed<std::int16_t>(*cell, csvColumns[column]);
    }
    return parsed<double>(*cell, csvColumns[column]);
}

// For each column of ours its position in the file.
std::array<std::size_t, csvColumns.size()> positionsOf(const CsvLine& header)
{
    std::array<std::size_t, csvColumns.size()> positions{};
    positions.fill(header.cells.size());
    for (std::size_t i = 0; i < header.cells.size(); ++i) {
        const std::string name = header.cells[i].value_or("");
        const auto column = std::find_if(csvColumns.begin(), csvColumns.end(),
            [&](std::string_view ours) { return sameName(ours, name); });
        if (column == csvColumns.end()) raise(JetError::TypeMismatch, "there is no column '" + name + "'");
        std::size_t& position = positions[static_cast<std::size_t>(column - csvColumns.begin())];
        if (position != header.cells.size())
            raise(JetError::TypeMismatch, "column '" + name + "' comes twice");
        position = i;
    }
    for (std::size_t i = 0; i < positions.size(); ++i)
        if (positions[i] == header.cells.size())
            raise(JetError::TypeMismatch, "column '" + std::string{csvColumns[i]} + "' is missing");
    return positions;
}

std::string lineName(std::size_t number) { return "line " + std::to_string(number); }

} // namespace

basic::Variant& valueOf(DefinitionRow& row, std::size_t column)
{
    basic::Variant* const values[]{&row.machineType, &row.variable, &row.absMax, &row.absMin, &row.element,
        &row.max, &row.min, &row.pass};
    return *values[column];
}

const basic::Variant& valueOf(const DefinitionRow& row, std::size_t column)
{
    const basic::Variant* const values[]{&row.machineType, &row.variable, &row.absMax, &row.absMin,
        &row.element, &row.max, &row.min, &row.pass};
    return *values[column];
}

std::vector<DefinitionRow> definitionsOf(const Table& table)
{
    std::vector<DefinitionRow> rows(table.rows.size());
    for (std::size_t column = 0; column < csvColumns.size(); ++column) {
        const std::size_t position = table.column(csvColumns[column]);
        for (std::size_t row = 0; row < rows.size(); ++row) {
            valueOf(rows[row], column) = table.rows[row].cells[position].value;
        }
    }
    return rows;
}

std::string DefinitionList::placeOf(std::size_t row) const
{
    return lines.empty() ? "row " + std::to_string(row + 1) : lineName(lines[row]);
}

DefinitionList loadDefinitions(const std::filesystem::path& file)
{
    return atFile(file.string(), [&]() -> DefinitionList {
        const DiskFile content = readFile(file);
        switch (kindOf(content.bytes)) {
        case FileKind::Database: return {definitionsOf(readDefinitions(FileImage{content.bytes})), {}};
        case FileKind::Text:
            return fromCsv({reinterpret_cast<const char*>(content.bytes.data()), content.bytes.size()});
        case FileKind::Empty: raise(JetError::UnknownFormat, "it is empty");
        default: raise(JetError::UnknownFormat, "it is neither a Jet database nor a CSV file in UTF-8");
        }
    });
}

std::string toCsv(const std::vector<DefinitionRow>& rows)
{
    std::string text = portable::csvLine({csvColumns.begin(), csvColumns.end()});
    for (const DefinitionRow& row : rows) {
        std::vector<CsvCell> cells;
        for (std::size_t column = 0; column < csvColumns.size(); ++column) {
            const basic::Variant& value = valueOf(row, column);
            if (value.holds<basic::Null>())
                cells.emplace_back();
            else
                cells.emplace_back(value.holds<std::string>() ? portable::withoutFormula(plainText(value))
                                                              : plainText(value));
        }
        text += portable::csvLine(cells);
    }
    return text;
}

DefinitionList fromCsv(std::string_view text)
{
    const std::vector<CsvLine> lines = portable::parseCsv(text);
    if (lines.empty()) raise(JetError::TypeMismatch, "it is empty; the first line has to name the columns");
    const auto positions =
        atPlace(lineName(lines.front().number), [&] { return positionsOf(lines.front()); });
    DefinitionList list;
    for (auto line = lines.begin() + 1; line != lines.end(); ++line) {
        list.rows.push_back(atPlace(lineName(line->number), [&] {
            if (line->cells.size() != csvColumns.size())
                raise(
                    JetError::TypeMismatch, "it has " + std::to_string(line->cells.size()) + " cells, not 8");
            DefinitionRow row;
            for (std::size_t column = 0; column < csvColumns.size(); ++column)
                valueOf(row, column) = cellValue(line->cells[positions[column]], column);
            return row;
        }));
        list.lines.push_back(line->number);
    }
    return list;
}

std::string plainText(const basic::Variant& value)
{
    if (const auto* number = value.get<double>()) return shortest(*number);
    if (const auto* number = value.get<float>()) return shortest(*number);
    if (const auto* amount = value.get<basic::Currency>()) return currencyText(*amount);
    if (const auto* date = value.get<basic::Date>()) return shortest(date->days);
    if (value.holds<basic::Null>()) return "";
    return basic::toText(value);
}

std::string shownText(const basic::Variant& value)
{
    return value.holds<basic::Null>() ? std::string{"-"} : portable::shownText(plainText(value));
}

DefinitionKey keyOf(const DefinitionRow& row)
{
    return {plainText(row.machineType), plainText(row.variable), plainText(row.element)};
}

std::string nameOf(const DefinitionRow& row)
{
    return shownText(row.machineType) + ", " + shownText(row.variable) + ", " + shownText(row.element);
}

} // namespace servopanel::jet

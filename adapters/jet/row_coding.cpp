#include "jet/row_coding.h"

#include "jet/number_coding.h"

#include <algorithm>

namespace servopanel::jet {

namespace {

Bytes encodeCell(const NewColumn& column, const basic::Variant& cell, const NewDatabaseOptions& options)
{
    if (cell.holds<basic::Null>()) return {};
    if (column.type != ColumnType::Text) return encodeNumber(column.type, cell);
    const auto* text = cell.get<std::string>();
    if (!text) raise(JetError::TypeMismatch, "column '" + column.name + "' takes a text");
    const Bytes plain = encodeText(*text, options.version);
    const std::size_t perCharacter = options.version == JetVersion::Jet3 ? 1 : 2;
    if (plain.size() > column.length * perCharacter)
        raise(JetError::TypeMismatch,
            "column '" + column.name + "' takes no more than " + std::to_string(column.length)
                + " characters");
    return options.textForm == TextForm::Plain ? plain : encodeText(*text, options.version, options.textForm);
}

// The end of a Jet 4 row: where its variable values end and start, the last first, and how many there are.
void appendTrailer4(Bytes& row, const std::vector<std::size_t>& starts, std::size_t end)
{
    append(row, end, 2);
    for (auto start = starts.rbegin(); start != starts.rend(); ++start)
        append(row, *start, 2);
    append(row, starts.size(), 2);
}

// The same for Jet 3. Positions have one byte; jump k, counted from the end, tells the first of them that has crossed
// the next 256 bytes.
void appendTrailer3(Bytes& row, const std::vector<std::size_t>& starts, std::size_t end, std::size_t maskSize)
{
    const std::size_t without = row.size() + 1 + starts.size() + 1 + maskSize;
    std::size_t jumps = (without - 1) / 256;
    while (jumps < (without + jumps - 1) / 256)
        ++jumps;
    append(row, end, 1);
    for (auto start = starts.rbegin(); start != starts.rend(); ++start)
        append(row, *start, 1);
    std::vector<std::size_t> positions = starts;
    positions.push_back(end);
    constexpr std::size_t none = 0xFF;
    for (std::size_t k = jumps; k >= 1; --k) {
        const auto crossed = std::find_if(
            positions.begin(), positions.end(), [k](std::size_t position) { return position >= 256 * k; });
        append(row, crossed == positions.end() ? none : static_cast<std::size_t>(crossed - positions.begin()),
            1);
    }
    append(row, starts.size(), 1);
}

Bytes maskOf(const std::vector<basic::Variant>& cells)
{
    Bytes mask((cells.size() + 7) / 8);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const auto* boolean = cells[i].get<bool>();
        const bool set = boolean ? *boolean : !cells[i].holds<basic::Null>();
        if (set) mask[i / 8] = static_cast<std::uint8_t>(mask[i / 8] | (1U << (i % 8)));
    }
    return mask;
}

} // namespace

bool isVariable(const NewColumn& column)
{
    switch (column.type) {
    case ColumnType::Binary:
    case ColumnType::Text:
    case ColumnType::Ole:
    case ColumnType::Memo: return true;
    default: return column.variable;
    }
}

std::size_t fixedSize(const NewColumn& column)
{
    return isVariable(column) || column.type == ColumnType::Boolean ? 0 : numberSize(column.type);
}

Bytes encodeRow(const std::vector<NewColumn>& columns, const std::vector<basic::Variant>& cells,
    const NewDatabaseOptions& options)
{
    const PageFormat& format = formatOf(options.version);
    Bytes row;
    append(row, cells.size(), format.columnCountSize);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (fixedSize(columns[i]) == 0) continue;
        Bytes value = encodeCell(columns[i], cells[i], options);
        value.resize(fixedSize(columns[i])); // room for a later value where there is none
        row.insert(row.end(), value.begin(), value.end());
    }
    std::vector<std::size_t> starts;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (!isVariable(columns[i])) continue;
        starts.push_back(row.size());
        const Bytes value = encodeCell(columns[i], cells[i], options);
        row.insert(row.end(), value.begin(), value.end());
    }
    const Bytes mask = maskOf(cells);
    const bool hasVariable = std::any_of(columns.begin(), columns.end(), isVariable);
    if (hasVariable && options.version == JetVersion::Jet4) appendTrailer4(row, starts, row.size());
    if (hasVariable && options.version == JetVersion::Jet3)
        appendTrailer3(row, starts, row.size(), mask.size());
    row.insert(row.end(), mask.begin(), mask.end());
    return row;
}

} // namespace servopanel::jet

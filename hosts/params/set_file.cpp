#include "params/set_file.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "basic/text.h"
#include "jet/servo_defs/named_errors.h"
#include "portable/csv.h"
#include "portable/text_reading.h"
#include "portable/whole_number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace servopanel::params {

namespace {

constexpr std::string_view mark = "servo parameters";
constexpr std::string_view version = "1";
constexpr std::array<std::string_view, 5> columns{"variable", "element", "name", "unit", "value"};
enum Column { Variable, Element, Name, Unit, Value };

using Cells = std::vector<portable::CsvCell>;

[[noreturn]] void refuse(const std::string& why) { basic::raise(basic::ErrorNumber::TypeMismatch, why); }

template <class F>
auto atLine(std::size_t line, F action)
{
    return jet::atPlace("line " + std::to_string(line), action);
}

portable::CsvCell textCell(const std::string& text)
{
    if (text.empty()) return std::nullopt;
    return portable::withoutFormula(text);
}

std::string cellText(const Cells& cells, std::size_t i)
{
    if (i >= cells.size() || !cells[i]) return {};
    return portable::withFormula(*cells[i]);
}

double finiteNumber(const std::string& text)
{
    double number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || read.ec != std::errc{} || read.ptr != text.data() + text.size()
        || !std::isfinite(number))
        refuse("the value '" + text + "' is no number such as 35.5");
    return number;
}

// Nothing when this is no line of columns.
std::optional<std::array<std::size_t, columns.size()>> positionsOf(const Cells& cells)
{
    std::array<std::size_t, columns.size()> positions{};
    std::string missing;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto found = std::find(cells.begin(), cells.end(), portable::CsvCell{std::string{columns[i]}});
        if (found == cells.end()) missing.append(missing.empty() ? "" : ", ").append(columns[i]);
        positions[i] = static_cast<std::size_t>(found - cells.begin());
    }
    if (missing.empty()) return positions;
    const bool isLineOfColumns =
        std::find(cells.begin(), cells.end(), portable::CsvCell{std::string{columns[Variable]}})
        != cells.end();
    if (isLineOfColumns) refuse("there is no column " + missing);
    return {};
}

void takeHeader(ParameterSet& set, const std::string& what, const std::string& text)
{
    if (what == "project") set.project = text;
    if (what == "machine") set.machine = text;
    if (what == "source") set.source = text;
    if (what == "time") set.time = text;
    if (what == "description") set.description = text;
    if (what != "epoch") return;
    set.epoch = portable::wholeNumber<std::int64_t>(text);
    if (!set.epoch) refuse("the epoch '" + text + "' is no whole number");
}

Row rowOf(const Cells& cells, const std::array<std::size_t, columns.size()>& positions,
    const std::string& machine, std::size_t line)
{
    const std::string variable = cellText(cells, positions[Variable]);
    const auto parameter = parameterVariable(variable);
    if (!parameter) refuse("the variable '" + variable + "' holds no parameters of a servo");
    if (parameter->machine != machine)
        refuse("the variable '" + variable + "' belongs to machine " + parameter->machine
            + ", this file is of " + machine);
    const std::string element = cellText(cells, positions[Element]);
    const auto number = portable::wholeNumber<int>(element);
    if (!number || *number < 0) refuse("the element '" + element + "' is no whole number from 0 on");
    const std::string value =
        positions[Value] < cells.size() && cells[positions[Value]] ? *cells[positions[Value]] : "";
    return {{parameter->servo, parameter->family, *number}, cellText(cells, positions[Name]),
        cellText(cells, positions[Unit]), finiteNumber(value), line};
}

void sortAndRequireOnce(std::vector<Row>& rows)
{
    std::stable_sort(
        rows.begin(), rows.end(), [](const Row& left, const Row& right) { return left.place < right.place; });
    const auto twice = std::adjacent_find(rows.begin(), rows.end(),
        [](const Row& left, const Row& right) { return left.place == right.place; });
    if (twice == rows.end()) return;
    atLine((twice + 1)->line, [&] {
        refuse("element " + std::to_string(twice->place.element) + " of this variable stands in line "
            + std::to_string(twice->line) + " too");
    });
}

} // namespace

std::string toText(const ParameterSet& set)
{
    const auto header = [](std::string_view what, const std::string& text) {
        return portable::csvLine({std::string{what}, textCell(text)});
    };
    std::string text = header(mark, std::string{version});
    if (!set.project.empty()) text += header("project", set.project);
    text += header("machine", set.machine);
    text += header("source", set.source);
    if (!set.time.empty()) text += header("time", set.time);
    if (set.epoch) text += header("epoch", std::to_string(*set.epoch));
    text += header("description", set.description);
    text += '\n';
    text += portable::csvLine({columns.begin(), columns.end()});
    for (const Row& row : set.rows)
        text += portable::csvLine({variableName(set.machine, row.place.servo, row.place.of().part),
            std::to_string(row.place.element), textCell(row.name), textCell(row.unit),
            numberText(row.value)});
    return text;
}

bool isParameterSet(std::string_view text)
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    return text.starts_with(mark);
}

ParameterSet fromText(std::string_view text)
{
    if (!isParameterSet(text))
        atLine(
            1, [] { refuse("it does not begin with '" + std::string{mark} + "': it is no parameter set"); });
    ParameterSet set;
    std::optional<std::array<std::size_t, columns.size()>> positions;
    for (const portable::CsvLine& line : portable::parseCsv(text))
        atLine(line.number, [&] {
            if (positions) {
                set.rows.push_back(rowOf(line.cells, *positions, set.machine, line.number));
                return;
            }
            const std::string what = cellText(line.cells, 0);
            if (what == mark && cellText(line.cells, 1) != version)
                refuse("version " + cellText(line.cells, 1) + " of the format is not known");
            positions = positionsOf(line.cells);
            if (!positions) return takeHeader(set, what, cellText(line.cells, 1));
            if (set.machine.empty()) refuse("no line before this one names the machine");
        });
    if (!positions) refuse("there is no line with the names of the columns");
    sortAndRequireOnce(set.rows);
    return set;
}

ParameterSet loadSet(const std::filesystem::path& file)
{
    return jet::atFile(file.string(), [&] {
        const portable::FileBytes content = portable::readFile(file, file.string());
        if (content.failure) throw *content.failure;
        return fromText(content.bytes);
    });
}

} // namespace servopanel::params

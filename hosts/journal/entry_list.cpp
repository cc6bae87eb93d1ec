#include "journal/entry_list.h"

#include "basic/text.h"
#include "portable/csv.h"
#include "portable/text_table.h"

#include <utility>

namespace servopanel::journal {

namespace {

using portable::shownText;
using Cells = std::vector<std::string>;

// Whole numbers without a point, whatever type the variable has.
std::string numberText(const Json& number)
{
    std::string text = number.dump();
    if (text.ends_with(".0")) text.resize(text.size() - 2);
    return text;
}

std::string scalarText(const Json& value)
{
    if (value.is_null()) return {};
    if (value.is_string()) return value.get<std::string>();
    return value.is_number() ? numberText(value) : value.dump();
}

std::string valueText(const Json& value)
{
    if (!value.is_array()) return scalarText(value);
    std::string list;
    for (const Json& element : value)
        list.append(list.empty() ? "[" : ", ").append(scalarText(element));
    return list.append(list.empty() ? "[]" : "]");
}

std::string elementText(const Entry& entry)
{
    if (changesNothing(entry)) return "none";
    return entry.element == wholeValue ? std::string{"all"} : std::to_string(entry.element);
}

std::string endText(const Entry& entry)
{
    std::string text{nameOf(entry.result)};
    if (entry.number != 0) text.append(" ").append(std::to_string(entry.number));
    if (!entry.text.empty()) text.append(": ").append(entry.text);
    return text;
}

// Whoever looks for a change must not have to compare two long lists for it.
std::string changeText(const Entry& entry, const Json& value)
{
    return changesNothing(entry) ? std::string{"unchanged"} : shownValue(value);
}

Cells cellsOf(const Entry& entry)
{
    return {std::to_string(entry.write), timeText(entry.time), entry.panel, std::to_string(entry.level),
        entry.machine.empty() ? "-" : entry.machine,
        entry.servo ? std::to_string(*entry.servo) : std::string{"-"}, entry.variable, elementText(entry),
        changeText(entry, entry.oldValue), changeText(entry, entry.newValue), endText(entry)};
}

portable::CsvCell textCell(const std::string& text)
{
    if (text.empty()) return std::nullopt;
    return portable::withoutFormula(text);
}

portable::CsvCell valueCell(const Json& value)
{
    if (value.is_null()) return std::nullopt;
    return value.is_string() ? portable::withoutFormula(value.get<std::string>()) : valueText(value);
}

} // namespace

std::string shownValue(const Json& value)
{
    if (value.is_null()) return "-";
    if (!value.is_string()) return shownText(valueText(value));
    return std::string{"\""}.append(shownText(value.get<std::string>())).append("\"");
}

bool Filter::admits(const Entry& entry) const
{
    if (since && entry.time < *since) return false;
    if (before && entry.time >= *before) return false;
    if (write && entry.write != *write) return false;
    if (within && (entry.time < within->begin || entry.time >= within->end)) return false;
    if (element && entry.element != *element) return false;
    if (servo && entry.servo != servo) return false;
    if (machine && entry.machine != *machine) return false;
    if (panel && entry.panel != *panel) return false;
    if (result && entry.result != *result) return false;
    if (onlyChanges && changesNothing(entry)) return false;
    return !variable
        || basic::upperCase(entry.variable).find(basic::upperCase(*variable)) != std::string::npos;
}

std::string tableOf(const std::vector<Entry>& entries)
{
    std::vector<Cells> lines{{"write", "time", "panel", "level", "machine", "servo", "variable", "element",
        "old", "new", "result"}};
    for (const Entry& entry : entries)
        lines.push_back(cellsOf(entry));
    return portable::tableOf(std::move(lines));
}

std::string csvOf(const std::vector<Entry>& entries)
{
    std::string csv = portable::csvLine({"write", "time", "panel", "level", "machine", "servo", "variable",
        "element", "old", "new", "result", "number", "text"});
    for (const Entry& entry : entries) {
        const auto orNothing = [](bool is, int number) {
            return is ? portable::CsvCell{std::to_string(number)} : portable::CsvCell{};
        };
        csv += portable::csvLine({std::to_string(entry.write), timeText(entry.time), textCell(entry.panel),
            std::to_string(entry.level), textCell(entry.machine),
            orNothing(entry.servo.has_value(), entry.servo.value_or(0)), textCell(entry.variable),
            std::to_string(entry.element), valueCell(entry.oldValue), valueCell(entry.newValue),
            std::string{nameOf(entry.result)}, orNothing(entry.number != 0, entry.number),
            textCell(entry.text)});
    }
    return csv;
}

} // namespace servopanel::journal

#include "check/unasked.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "machine/designations.h"
#include "machine/panel_words.h"

#include <algorithm>
#include <string_view>

namespace servopanel::check {

namespace {

constexpr std::string_view panelPrefix = "Panel.";

bool isDigit(char sign) { return sign >= '0' && sign <= '9'; }

// A name with a sign for the designation of its machine: the first that stands in it, wherever it stands.
std::string withoutDesignation(std::string name, const std::vector<std::string>& designations)
{
    constexpr char sign = '\x01';
    std::size_t first = std::string::npos;
    std::string found;
    for (const std::string& each : designations)
        if (const std::size_t at = name.find(each); at < first) {
            first = at;
            found = each;
        }
    for (std::size_t at = first; at != std::string::npos; at = name.find(found, at + 1))
        name.replace(at, found.size(), 1, sign);
    return name;
}

// A name with its numbers as a function writes them: (number, its end in the name) -> text.
template <class Write>
std::string withNumbers(std::string_view name, const Write& write)
{
    std::string result;
    for (std::size_t at = 0; at < name.size();) {
        std::size_t end = at;
        while (end < name.size() && isDigit(name[end]))
            ++end;
        if (end == at)
            result += name[at++];
        else {
            result += write(name.substr(at, end - at), end);
            at = end;
        }
    }
    return result;
}

// "Servo.<D>.Servo#.#": servos and items have other numbers as well.
std::string builtAs(const std::string& textKey)
{
    return withNumbers(textKey, [](std::string_view, std::size_t) { return std::string_view{"#"}; });
}

// A servo's number stands before "<" and again at the end, there with the number of a page behind it or without. Of
// other names the number at the end may be another one.
std::string variableBuiltAs(const std::string& name)
{
    const std::size_t middle = std::min(name.find('<'), name.size());
    std::size_t start = middle;
    while (start > 0 && isDigit(name[start - 1]))
        --start;
    const std::string servo = name.substr(start, middle - start);
    return withNumbers(name, [&](std::string_view number, std::size_t end) -> std::string_view {
        const bool isLast = end + 1 >= name.size();
        if (end == middle || (servo.empty() && isLast)) return "#";
        if (servo.empty() || !isLast) return number;
        if (number == servo) return "#";
        return number.size() == servo.size() + 1 && number.starts_with(servo) ? "#page" : number;
    });
}

} // namespace

Unasked::Unasked(const CheckedProject& project, const Asked& asked)
    : isSure_{asked.wholeServos > 0 && asked.errors.empty()}
    , designations_{machine::designations(project.file)}
{
    // Names that are built for the machine as it was meant are not misspelt.
    if (!asked.skippedMachines.empty()) {
        isSure_ = false;
        return;
    }
    std::sort(designations_.begin(), designations_.end(),
        [](const std::string& left, const std::string& right) { return left.size() > right.size(); });

    panelKeys_.insert("Panel.Title");
    for (const machine::PanelWord& word : machine::panelWords())
        panelKeys_.emplace(word.key);
    for (const std::string& machine : designations_)
        panelKeys_.insert("Panel.Machine." + machine);
    for (const auto& screen : project.file.screens)
        panelKeys_.insert("Panel.Screen." + basic::decimal(std::int32_t{screen.number}));
    for (const auto& [number, view] : asked.screens)
        panelKeys_.insert("Panel.Screen." + basic::decimal(std::int32_t{number}));

    for (const std::string& key : asked.textKeys)
        textKeys_.insert(builtAs(withoutDesignation(key, designations_)));
    for (const std::string& name : asked.variableNames)
        variableNames_.insert(variableBuiltAs(withoutDesignation(name, designations_)));
}

bool Unasked::text(const std::string& key) const
{
    if (key.starts_with(panelPrefix)) return !panelKeys_.empty() && !panelKeys_.contains(key);
    return isSure_ && !textKeys_.contains(builtAs(withoutDesignation(key, designations_)));
}

bool Unasked::variable(const std::string& name) const
{
    return isSure_ && !variableNames_.contains(variableBuiltAs(withoutDesignation(name, designations_)));
}

void checkVariables(const CheckedProject& project, const Unasked& unasked, Findings& findings)
{
    for (const auto& variable : project.file.variables)
        if (unasked.variable(variable.name))
            findings.add("project.json", project.lineOfVariable(variable.name),
                "nobody reads the variable \"" + variable.name + "\"; is it misspelt?");
}

} // namespace servopanel::check

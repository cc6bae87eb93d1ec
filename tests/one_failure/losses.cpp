#include "one_failure/losses.h"

#include "one_failure/failing_seam.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string_view>
#include <utility>

namespace servopanel::testing {

namespace {

bool isDigits(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// Without its number: which one it is belongs to the traces. "text Servo.M1.Servo3" for "text Servo.M1.Servo3.41".
std::string withoutTextNumber(const std::string& text)
{
    const std::size_t dot = text.rfind('.');
    const bool isNumbered =
        text.starts_with("text ") && dot != std::string::npos && isDigits(text.substr(dot + 1));
    return isNumbered ? text.substr(0, dot) : text;
}

// A line without the values that cross: "put ServoMain.Timer.Enabled = true" is "put ServoMain.Timer.Enabled".
std::string keyOf(const std::string& line)
{
    const std::string first = line.substr(0, line.find(' '));
    const auto upTo = [&](std::string_view mark) { return line.substr(0, line.find(mark)); };
    if (first == "text") return withoutTextNumber(upTo(" = "));
    if (first == "put" || first == "read" || first == "write" || first == "profile") {
        const std::string key = upTo(" = ");
        constexpr std::string_view failed = " failed";
        return key.ends_with(failed) ? key.substr(0, key.size() - failed.size()) : key;
    }
    if (first == "exists") {
        for (const std::string_view answer : {" yes", " no", " failed"})
            if (line.ends_with(answer)) return line.substr(0, line.size() - answer.size());
        return line;
    }
    if (first == "raise") return upTo("(");
    if (first == "bitblt" || first == "stretch") {
        std::istringstream words{line};
        std::string from;
        std::string to;
        words >> from >> from >> to;
        return first + " " + from + " " + to;
    }
    if (first == "line") {
        // Object and flags; points and colour are left out.
        const std::size_t points = line.find(" (");
        return points == std::string::npos ? line : line.substr(0, points) + line.substr(line.rfind(' '));
    }
    if (first == "call") {
        // A footer key's number comes first.
        const std::size_t comma = line.find(", ");
        const std::string key = comma == std::string::npos ? line : line.substr(0, comma) + ")";
        return key.substr(0, key.find(" -> "));
    }
    if (first == "error") {
        const std::size_t description = line.find("\" \"");
        return description == std::string::npos ? line : line.substr(0, description + 1);
    }
    return line;
}

std::vector<std::string> keysOf(const std::vector<std::string>& lines)
{
    std::vector<std::string> keys;
    keys.reserve(lines.size());
    for (const std::string& line : lines)
        keys.push_back(keyOf(line));
    return keys;
}

struct Difference {
    std::vector<std::string> missing;
    std::vector<std::string> added;
};

// By the longest common subsequence of what lies between the parts that are the same.
Difference difference(const std::vector<std::string>& whole, const std::vector<std::string>& failed)
{
    std::size_t begin = 0;
    while (begin < whole.size() && begin < failed.size() && whole[begin] == failed[begin])
        ++begin;
    std::size_t end = whole.size();
    std::size_t failedEnd = failed.size();
    while (end > begin && failedEnd > begin && whole[end - 1] == failed[failedEnd - 1]) {
        --end;
        --failedEnd;
    }
    const std::size_t rows = end - begin;
    const std::size_t columns = failedEnd - begin;
    // length: of the longest common subsequence from here on.
    std::vector<std::uint32_t> lengths((rows + 1) * (columns + 1));
    const auto length = [&](std::size_t row, std::size_t column) -> std::uint32_t& {
        return lengths[row * (columns + 1) + column];
    };
    for (std::size_t row = rows; row-- > 0;) {
        for (std::size_t column = columns; column-- > 0;) {
            length(row, column) = whole[begin + row] == failed[begin + column]
                ? length(row + 1, column + 1) + 1
                : std::max(length(row + 1, column), length(row, column + 1));
        }
    }
    Difference found;
    std::size_t row = 0;
    std::size_t column = 0;
    while (row < rows || column < columns) {
        if (row < rows && column < columns && whole[begin + row] == failed[begin + column]) {
            ++row;
            ++column;
        } else if (column == columns || (row < rows && length(row + 1, column) >= length(row, column + 1))) {
            found.missing.push_back(whole[begin + row++]);
        } else {
            found.added.push_back(failed[begin + column++]);
        }
    }
    return found;
}

// A text with the index of an element of a control array.
struct Indexed {
    std::string text; // with # for the index
    std::optional<int> index;
};

Indexed indexed(const std::string& text)
{
    for (std::size_t open = text.find('('); open != std::string::npos; open = text.find('(', open + 1)) {
        const std::size_t close = text.find(')', open);
        if (close == std::string::npos) break;
        const std::string inside = text.substr(open + 1, close - open - 1);
        if (isDigits(inside)) return {text.substr(0, open + 1) + "#" + text.substr(close), std::stoi(inside)};
    }
    return {text, std::nullopt};
}

// "1..10,21,22"
std::string rangesText(const std::set<int>& numbers)
{
    std::string text;
    for (auto number = numbers.begin(); number != numbers.end();) {
        const int first = *number;
        int last = first;
        while (++number != numbers.end() && *number == last + 1)
            ++last;
        if (!text.empty()) text += ",";
        text += std::to_string(first);
        if (last > first) text += ".." + std::to_string(last);
    }
    return text;
}

std::string withRanges(std::string text, const std::set<int>& numbers)
{
    const std::string ranges = rangesText(numbers);
    for (std::size_t at = text.find('#'); at != std::string::npos; at = text.find('#', at + ranges.size()))
        text.replace(at, 1, ranges);
    return text;
}

// The lines of one effect, folded; those of the failed crossing's own element keep their #.
std::vector<std::string> folded(const std::vector<std::string>& keys, std::optional<int> own)
{
    struct Group {
        std::string text;
        std::set<int> numbers;
        int count = 0;
    };
    std::vector<Group> groups;
    for (const std::string& key : keys) {
        const Indexed line = indexed(key);
        const bool isOther = line.index && line.index != own;
        const auto same = std::find_if(groups.begin(), groups.end(),
            [&](const Group& group) { return group.text == line.text && group.numbers.empty() != isOther; });
        Group& group = same == groups.end() ? groups.emplace_back(Group{line.text, {}, 0}) : *same;
        if (isOther)
            group.numbers.insert(*line.index);
        else
            ++group.count;
    }
    std::vector<std::string> lines;
    for (const Group& group : groups) {
        std::string line = group.numbers.empty() ? group.text : withRanges(group.text, group.numbers);
        if (group.count > 1) line += " (" + std::to_string(group.count) + " times)";
        lines.push_back(line);
    }
    return lines;
}

// Puts to the same object stand together: "put Timer.Enabled .Interval".
std::vector<std::string> joined(const std::vector<std::string>& lines)
{
    std::vector<std::string> result;
    std::vector<std::string> objects;
    for (const std::string& line : lines) {
        const bool isPut = line.starts_with("put ") && !line.ends_with(")");
        const std::size_t dot = line.rfind('.');
        const std::string object = isPut ? line.substr(0, dot) : line;
        const auto same = std::find(objects.begin(), objects.end(), object);
        if (isPut && same != objects.end()) {
            result[static_cast<std::size_t>(same - objects.begin())] += " " + line.substr(dot);
            continue;
        }
        objects.push_back(object);
        result.push_back(line);
    }
    return result;
}

bool isOwnLine(const std::string& key, const std::string& crossing)
{
    return key == crossing || key.starts_with(crossing + " ");
}

// One row of the table: what fails and what comes of it, with # for the element.
struct Row {
    std::string procedure;
    std::vector<std::string> effect;
    std::vector<std::string> crossings;
    std::set<int> numbers;
    bool plain = false;
};

// The one element that the lines speak of, when there is just one.
std::optional<int> onlyIndex(const std::vector<std::string>& keys)
{
    std::optional<int> only;
    for (const std::string& key : keys) {
        const std::optional<int> index = indexed(key).index;
        if (!index) continue;
        if (only && only != index) return std::nullopt;
        only = index;
    }
    return only;
}

Row rowOf(const Loss& loss)
{
    const Indexed crossing = indexed(loss.crossing);
    std::optional<int> own = crossing.index;
    if (!own) {
        std::vector<std::string> all = loss.missing;
        all.insert(all.end(), loss.added.begin(), loss.added.end());
        all.insert(all.end(), loss.changed.begin(), loss.changed.end());
        own = onlyIndex(all);
    }
    Row row;
    row.procedure = loss.reports.empty() ? "nobody" : loss.reports.front();
    row.crossings = {crossing.text};
    row.plain = loss.isPlain();
    if (own) row.numbers = {*own};
    if (row.plain) {
        row.effect = folded(loss.missing, own);
        return row;
    }
    const std::pair<std::string_view, const std::vector<std::string>&> parts[]{
        {"- ", loss.missing}, {"+ ", loss.added}, {"~ ", loss.changed}};
    // What an event or a whole view brings is told by where it begins and ends.
    constexpr std::size_t many = 40;
    for (const auto& [sign, keys] : parts) {
        if (keys.size() > many) {
            row.effect.push_back(
                std::string{sign} + std::to_string(keys.size()) + " lines from " + keys.front());
            row.effect.push_back("    to " + keys.back());
            continue;
        }
        for (const std::string& line : joined(folded(keys, own)))
            row.effect.push_back(std::string{sign} + line);
    }
    return row;
}

// "child" and "get 8" for what belongs to the object of the line, anything else in full.
std::string shortName(const std::string& crossing, const std::string& line)
{
    const std::size_t space = crossing.find(' ');
    if (space == std::string::npos) return crossing;
    const std::string what = crossing.substr(0, space);
    const std::string object = crossing.substr(space + 1);
    const std::size_t at = line.find(' ');
    const std::string rest = at == std::string::npos ? line : line.substr(at + 1);
    if (what == "child" && rest.starts_with(object + ".")) return what;
    const std::size_t dot = object.rfind('.');
    if (what == "get" && rest.starts_with(object.substr(0, dot + 1))) return "get " + object.substr(dot + 1);
    return crossing;
}

// The line of a plain row, and behind it what else costs just this line.
struct Plain {
    std::string line;
    std::string others;
};

Plain plainText(const Row& row)
{
    const std::string line = row.effect.empty() ? "nothing" : row.effect.front();
    Plain plain{withRanges(line, row.numbers), {}};
    for (const std::string& crossing : row.crossings) {
        if (isOwnLine(line, crossing)) continue;
        plain.others +=
            (plain.others.empty() ? " < " : ", ") + withRanges(shortName(crossing, line), row.numbers);
    }
    return plain;
}

std::string effectText(const Row& row)
{
    std::string text;
    for (const std::string& crossing : row.crossings)
        text += "  " + withRanges(crossing, row.numbers) + "\n";
    if (row.crossings.size() == 1 && row.effect.size() == 1) {
        text.back() = ' ';
        return text + withRanges(row.effect.front(), row.numbers) + "\n";
    }
    for (const std::string& line : row.effect)
        text += "      " + withRanges(line, row.numbers) + "\n";
    return text;
}

// Plain rows first, those of one object in one line.
std::string rowsText(const std::vector<Row>& rows)
{
    std::vector<std::string> others;
    std::map<std::string, std::vector<std::string>> lines;
    std::string effects;
    for (const Row& row : rows) {
        if (!row.plain) {
            effects += effectText(row);
            continue;
        }
        const Plain plain = plainText(row);
        if (!lines.contains(plain.others)) others.push_back(plain.others);
        lines[plain.others].push_back(plain.line);
    }
    std::string text;
    for (const std::string& other : others)
        for (const std::string& line : joined(lines[other]))
            text += "  " + line + other + "\n";
    return text + effects;
}

} // namespace

bool Loss::isPlain() const
{
    if (!added.empty() || !changed.empty() || missing.size() > 1) return false;
    const std::string kind = crossing.substr(0, crossing.find(' '));
    for (const std::string_view silent :
        {"child", "get", "class", "path", "width", "make", "db", "library", "twips", "input", "environment"})
        if (kind == silent) return true;
    return missing.size() == 1 && isOwnLine(missing.front(), crossing);
}

Loss compared(const std::string& crossing, const std::vector<std::string>& whole,
    const std::vector<std::string>& failed)
{
    Loss loss{keyOf(crossing), {}, {}, {}, {}};
    Difference found = difference(whole, failed);
    const std::string own = "error " + std::to_string(Crossings::errorNumber) + " \"";
    for (const std::string& line : found.added) {
        if (!line.starts_with(own)) continue;
        loss.reports.push_back(line.substr(own.size(), line.find('"', own.size()) - own.size()));
    }
    std::erase_if(found.added, [&](const std::string& line) { return line.starts_with(own); });

    loss.missing = keysOf(found.missing);
    for (const std::string& key : keysOf(found.added)) {
        const auto same = std::find(loss.missing.begin(), loss.missing.end(), key);
        if (same == loss.missing.end()) {
            loss.added.push_back(key);
        } else {
            loss.changed.push_back(key);
            loss.missing.erase(same);
        }
    }
    return loss;
}

std::string table(const std::vector<Loss>& losses)
{
    // Elements first, then crossings that cost the same.
    std::vector<Row> rows;
    for (const Loss& loss : losses) {
        Row row = rowOf(loss);
        const auto same = std::find_if(rows.begin(), rows.end(), [&](const Row& known) {
            return known.procedure == row.procedure && known.crossings == row.crossings
                && known.effect == row.effect && known.numbers.empty() == row.numbers.empty();
        });
        if (same == rows.end())
            rows.push_back(std::move(row));
        else
            same->numbers.merge(row.numbers);
    }
    std::vector<Row> merged;
    for (Row& row : rows) {
        const auto same = std::find_if(merged.begin(), merged.end(), [&](const Row& known) {
            return known.procedure == row.procedure && known.effect == row.effect
                && known.numbers == row.numbers && known.plain == row.plain;
        });
        if (same == merged.end())
            merged.push_back(std::move(row));
        else
            same->crossings.push_back(row.crossings.front());
    }

    std::vector<std::string> procedures;
    std::map<std::string, std::vector<Row>> byProcedure;
    for (Row& row : merged) {
        if (!byProcedure.contains(row.procedure)) procedures.push_back(row.procedure);
        byProcedure[row.procedure].push_back(std::move(row));
    }
    std::string all;
    for (const std::string& procedure : procedures)
        all += procedure + "\n" + rowsText(byProcedure[procedure]);
    return all;
}

} // namespace servopanel::testing

#include "portable/text_table.h"

#include "portable/csv.h"

#include <algorithm>
#include <string_view>

namespace servopanel::portable {

namespace {

// Characters of UTF-8, as a terminal counts most of them.
std::size_t widthOf(std::string_view text)
{
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

} // namespace

std::string tableOf(std::vector<std::vector<std::string>> lines)
{
    if (lines.empty()) return {};
    std::vector<std::size_t> widths(lines.front().size());
    for (auto& line : lines)
        for (std::size_t i = 0; i < line.size(); ++i) {
            line[i] = shownText(line[i]);
            widths[i] = std::max(widths[i], widthOf(line[i]));
        }
    std::string table;
    for (const auto& line : lines) {
        std::string text;
        for (std::size_t i = 0; i < line.size(); ++i)
            text.append(line[i]).append(widths[i] - widthOf(line[i]) + 2, ' ');
        text.resize(text.find_last_not_of(' ') + 1);
        table.append(text).append("\n");
    }
    return table;
}

} // namespace servopanel::portable

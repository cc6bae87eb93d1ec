#include "monkey/trace_block.h"

#include "recording/scenario/line_reader.h"

#include <algorithm>

namespace servopanel::monkey {

bool TraceBlock::has(std::string_view beginning) const
{
    return std::any_of(
        lines.begin(), lines.end(), [&](std::string_view line) { return line.starts_with(beginning); });
}

bool TraceBlock::isReported(std::size_t line) const
{
    return line + 1 < lines.size() && lines[line + 1].starts_with("error ");
}

std::vector<TraceBlock> blocksOf(std::string_view trace)
{
    std::vector<TraceBlock> blocks(1);
    while (!trace.empty()) {
        const std::string_view line = trace.substr(0, trace.find('\n'));
        trace.remove_prefix(std::min(line.size() + 1, trace.size()));
        if (line.starts_with("> "))
            blocks.push_back({line.substr(2), {}, false});
        else
            blocks.back().lines.push_back(line);
        if (line.starts_with("refused ") || line == "timer off") blocks.back().isRefused = true;
    }
    return blocks;
}

std::optional<Access> accessOf(std::string_view line, std::string_view kind)
{
    constexpr std::string_view failed = " failed";
    if (!line.starts_with(kind)) return std::nullopt;
    line.remove_prefix(kind.size());
    if (const std::size_t sign = line.find(" = "); sign != std::string_view::npos)
        return Access{line.substr(0, sign), line.substr(sign + 3)};
    if (!line.ends_with(failed)) return std::nullopt;
    return Access{line.substr(0, line.size() - failed.size()), std::nullopt};
}

std::optional<basic::Variant> valueOf(std::string_view text)
{
    try {
        return recording::LineReader{text}.value("the value");
    } catch (const recording::Malformed&) {
        return std::nullopt;
    }
}

} // namespace servopanel::monkey

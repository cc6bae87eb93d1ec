#include "monkey/tally.h"

#include <sstream>

namespace servopanel::monkey {

std::string Tally::text() const
{
    std::string all;
    for (const auto& [what, times] : counts_) {
        if (!all.empty()) all += ", ";
        all.append(what).append(": ").append(std::to_string(times));
    }
    return all;
}

std::string Tally::lines() const
{
    std::string all;
    for (const auto& [what, times] : counts_)
        all.append(std::to_string(times)).append(" ").append(what).append("\n");
    return all;
}

Tally Tally::fromLines(std::string_view lines)
{
    Tally tally;
    std::istringstream in{std::string{lines}};
    std::size_t times = 0;
    for (std::string what; in >> times && in.get() && std::getline(in, what);)
        tally.add(what, times);
    return tally;
}

} // namespace servopanel::monkey

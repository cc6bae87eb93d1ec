// Lines of a journal: of writes, of how they ended, of lines that were lost.
#include "journal/entry.h"

#include "basic/lines.h"
#include "fuzz/fuzz.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace servopanel::fuzz {

namespace {

// What was read is written and read again, as the undoing of a write does.
template <class Kind>
void thereAndBack(const journal::Line& line)
{
    const auto* const read = std::get_if<Kind>(&line);
    if (read == nullptr) return;
    const std::string once = lineOf(*read);
    const journal::Line again = journal::readLine(once);
    const auto* const same = std::get_if<Kind>(&again);
    if (same == nullptr || lineOf(*same) != once) broken("a line comes back as it was written");
}

} // namespace

void feed(std::string_view bytes)
{
    basic::Lines lines{bytes};
    while (const std::optional<std::string_view> next = lines.next()) {
        const journal::Line line = journal::readLine(*next);
        if (const auto* const reason = std::get_if<std::string>(&line); reason != nullptr && reason->empty())
            broken("a line that is refused says why");
        thereAndBack<journal::Entry>(line);
        thereAndBack<journal::Ending>(line);
        thereAndBack<journal::Gap>(line);
    }
}

} // namespace servopanel::fuzz

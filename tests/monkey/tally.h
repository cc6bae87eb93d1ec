#pragma once

#include <map>
#include <string>
#include <string_view>

namespace servopanel::monkey {

// How often was done what the rules are about: a run that did nothing proves nothing.
class Tally {
public:
    static constexpr std::string_view played = "commands played", skipped = "commands skipped",
                                      confirms = "confirms of servo ", values = "written ",
                                      failedWrites = "failed writes", unread = "not read for a confirm",
                                      editors = "editor OKs", refused = "refused", scrolls = "scrolls",
                                      diagnosis = "diagnosis pages", discards = "discards";

    void add(std::string_view what, std::size_t times = 1) { counts_[std::string{what}] += times; }
    void add(std::string_view what, std::string_view which, std::size_t times = 1)
    {
        std::string both{what};
        add(both.append(which), times);
    }
    void add(const Tally& other)
    {
        for (const auto& [what, times] : other.counts_)
            counts_[what] += times;
    }
    std::size_t times(std::string_view what) const
    {
        const auto found = counts_.find(what);
        return found == counts_.end() ? 0 : found->second;
    }
    std::size_t times(std::string_view what, std::string_view which) const
    {
        std::string both{what};
        return times(both.append(which));
    }
    // "confirms of servo 3: 12, editor OKs: 4, ..."
    std::string text() const;

    // As lines, for another process.
    std::string lines() const;
    static Tally fromLines(std::string_view lines);

private:
    std::map<std::string, std::size_t, std::less<>> counts_;
};

} // namespace servopanel::monkey

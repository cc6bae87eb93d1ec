#pragma once

#include "basic/variant.h"
#include "panel/trends/history.h"

#include <functional>
#include <string>
#include <string_view>

namespace servopanel::panel {

// Keeps the history of the actual values that a page shows. It learns from the page's own reads which variable they
// are in and what they were; while a trend is open it reads that variable more often by itself. Reading is all it does.
class Sampler {
public:
    static constexpr std::size_t values = 40; // of one page, its table included
    static constexpr double longestSpan = 15 * 60; // seconds that are kept
    static constexpr int periodMs = 200; // of its own reads

    // Raises basic::Error when the variable cannot be read.
    using Read = std::function<basic::Variant(std::string_view name)>;
    using Clock = std::function<double()>; // seconds, never jumping
    Sampler(Read read, Clock clock);

    // A page has read a variable; those without actual values do not matter, and false comes back. nullptr: it could not be
    // read.
    bool seen(std::string_view name, const basic::Variant* value);
    // Reads the variable once more.
    void sample();

    const History& history() const { return history_; }
    double now() const { return clock_(); }
    // Told when a page reads its values from another variable than before; the history has started anew then.
    void setChanged(std::function<void()> changed) { changed_ = std::move(changed); }

private:
    void add(const basic::Variant* value);

    Read read_;
    Clock clock_;
    std::string variable_;
    History history_;
    std::function<void()> changed_;
};

} // namespace servopanel::panel

#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace servopanel::basic {

// Takes a text apart line by line, without the ends: CR LF, LF and CR alone all end a line. Views of the text, which has to
// outlive them.
class Lines {
public:
    explicit Lines(std::string_view text);

    // Nothing after the last line; what an end of line at the very end is followed by is none.
    std::optional<std::string_view> next();

private:
    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t feed_; // the next line feed, looked for once
};

} // namespace servopanel::basic

#include "basic/lines.h"

namespace servopanel::basic {

Lines::Lines(std::string_view text)
    : text_{text}
    , feed_{text.find('\n')}
{
}

std::optional<std::string_view> Lines::next()
{
    if (at_ >= text_.size()) return std::nullopt;
    // One sign is found far faster than the first of two.
    if (feed_ < at_) feed_ = text_.find('\n', at_);
    const std::string_view upToFeed = text_.substr(at_, feed_ - at_);
    const std::string_view line = upToFeed.substr(0, upToFeed.find('\r'));
    at_ += line.size();
    at_ += text_.substr(at_, 2) == "\r\n" ? 2 : 1;
    return line;
}

} // namespace servopanel::basic

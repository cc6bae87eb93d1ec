#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace servopanel::platform {

// Single look-ups in an INI file by the rules of the Windows profile functions: section and entry without regard to
// case, blanks around the value trimmed, one pair of quotes around it dropped, no more than 254 characters.
class Profile {
public:
    virtual ~Profile() = default;
    // file: full path. Nothing when file, section or entry is missing.
    virtual std::optional<std::string> text(
        std::string_view file, std::string_view section, std::string_view entry) = 0;
};

} // namespace servopanel::platform

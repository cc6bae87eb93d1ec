#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace servopanel::platform {

class PathHelper {
public:
    virtual ~PathHelper() = default;

    // The full path of a project-relative name, with backslashes. Nothing is looked up; the file need not exist.
    virtual std::string path(std::string_view name) = 0;

    // Opens another screen of the HMI project. What a missing screen does is the host's matter, not an error.
    virtual void openScreen(std::int16_t number) = 0;

    // Whether the current user may enter values: 0 is no.
    virtual std::int16_t inputPermission() = 0;
};

} // namespace servopanel::platform

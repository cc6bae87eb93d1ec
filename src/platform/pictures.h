#pragma once

#include "platform/control.h"

#include <string>
#include <string_view>

namespace servopanel::platform {

// A picture of the host, opaque to the library.
class Picture : public basic::Object {
public:
    // Full path of the file that it was loaded from.
    virtual std::string file() const = 0;
};

class Pictures {
public:
    virtual ~Pictures() = default;

    // Loads a picture file, telling the format by its content. Error 53 when there is none, 481 when it is no picture.
    virtual basic::ObjectRef load(std::string_view path) = 0;
    // Saves what a picture box shows as a bitmap, whatever the extension of the name.
    virtual void save(Control& box, std::string_view path) = 0;
};

} // namespace servopanel::platform

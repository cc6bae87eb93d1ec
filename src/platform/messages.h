#pragma once

#include <string_view>

namespace servopanel::platform {

class Messages {
public:
    virtual ~Messages() = default;
    // A text with an OK button; returns when the operator has closed it. Events may be delivered meanwhile.
    virtual void show(std::string_view text) = 0;
};

} // namespace servopanel::platform

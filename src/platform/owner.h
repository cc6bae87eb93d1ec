#pragma once

#include "platform/member.h"

#include <string_view>

namespace servopanel::platform {

// Receives the events that a control of the library raises; its handler runs before raise returns.
class Owner {
public:
    virtual ~Owner() = default;
    virtual void raise(std::string_view event, Args args) = 0;
};

} // namespace servopanel::platform

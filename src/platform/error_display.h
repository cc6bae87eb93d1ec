#pragma once

#include <cstdint>
#include <string_view>

namespace servopanel::platform {

// Shows error reports to whoever looks after the panel.
class ErrorDisplay {
public:
    virtual ~ErrorDisplay() = default;
    // text: the composed report, which ends in the name of the procedure that failed.
    virtual void ErrMessage(std::int32_t number, std::string_view source, std::string_view description,
        std::string_view text) = 0;
    virtual void CloseMe() = 0;
};

} // namespace servopanel::platform

#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace servopanel::mqtt {

// A message that does not follow the protocol. The text names the topic; the message counts as never received.
class ProtocolError : public std::runtime_error {
public:
    ProtocolError(std::string_view topic, std::string_view reason)
        : std::runtime_error{std::string{topic}.append(": ").append(reason)}
    {
    }
};

} // namespace servopanel::mqtt

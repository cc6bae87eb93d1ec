#include "mqtt/broker_options.h"

#include <algorithm>
#include <array>
#include <utility>

namespace servopanel::mqtt {

namespace {
constexpr std::array<std::string_view, 6> options{
    "--broker", "--user", "--password-file", "--ca", "--cert", "--key"};
} // namespace

const char* const brokerOptionsHelp =
    R"(  --user NAME          user name at the broker
  --password-file FILE its first line is the password
  --ca FILE            encrypts the connection; the broker's certificate is checked against this one
  --cert FILE          certificate that we show to the broker
  --key FILE           its key
)";

bool BrokerOptions::knows(std::string_view option)
{
    return std::find(options.begin(), options.end(), option) != options.end();
}

void BrokerOptions::set(std::string_view option, std::string value)
{
    if (option == "--broker")
        broker_ = std::move(value);
    else if (option == "--user")
        credentials_.user = std::move(value);
    else if (option == "--password-file")
        credentials_.passwordFile = std::move(value);
    else if (option == "--ca")
        credentials_.authority = std::move(value);
    else if (option == "--cert")
        credentials_.certificate = std::move(value);
    else
        credentials_.key = std::move(value);
}

std::variant<BrokerAddress, std::string> BrokerOptions::address() const
{
    BrokerAddress address = credentials_;
    if (!broker_.empty()) {
        const auto parsed = parseBrokerAddress(broker_);
        if (const auto* const problem = std::get_if<std::string>(&parsed))
            return std::string{"--broker "}.append(broker_).append(": ").append(*problem);
        const auto& place = std::get<BrokerAddress>(parsed);
        address.host = place.host;
        address.port = place.port;
        address.socket = place.socket;
    }
    return address;
}

} // namespace servopanel::mqtt

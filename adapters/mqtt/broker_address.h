#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <variant>

namespace servopanel::mqtt {

// Where the broker is and who asks.
struct BrokerAddress {
    std::string host = "127.0.0.1";
    int port = 1883;
    std::filesystem::path socket; // of a broker on this machine, instead of host and port

    // Files in PEM form. With an authority the connection is encrypted and the broker must prove itself.
    std::filesystem::path authority;
    std::filesystem::path certificate;
    std::filesystem::path key; // not encrypted itself

    std::string user; // empty: none, or what the certificate says
    std::filesystem::path passwordFile; // its first line

    bool isLocal() const; // nobody outside this machine can listen
    std::string text() const; // "127.0.0.1:1883", for messages
};

// "HOST", "HOST:PORT", "[IPV6]:PORT" or "unix:/PATH", else a text that says what is wrong.
std::variant<BrokerAddress, std::string> parseBrokerAddress(std::string_view text);

// What keeps this address from being used, naming the file: an unreadable file, a certificate without a key, an
// encrypted key, no encryption to another machine. Empty when nothing does.
std::string problemOf(const BrokerAddress& address);

} // namespace servopanel::mqtt

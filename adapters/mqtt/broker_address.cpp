#include "mqtt/broker_address.h"

#include <arpa/inet.h>
#include <netinet/in.h>

#include <charconv>
#include <fstream>

namespace servopanel::mqtt {

namespace {

constexpr std::string_view socketPrefix = "unix:";
constexpr int largestPort = 65'535;

bool isReadable(const std::filesystem::path& file)
{
    std::error_code ignored;
    return std::filesystem::is_regular_file(file, ignored) && std::ifstream{file}.good();
}

// A number, not a name that only looks like one.
bool isLoopback(const std::string& host)
{
    in_addr four{};
    if (::inet_pton(AF_INET, host.c_str(), &four) == 1) return ntohl(four.s_addr) >> 24 == IN_LOOPBACKNET;
    in6_addr six{};
    return ::inet_pton(AF_INET6, host.c_str(), &six) == 1 && IN6_IS_ADDR_LOOPBACK(&six);
}

bool isOpenToOthers(const std::filesystem::path& file)
{
    std::error_code ignored;
    return (std::filesystem::status(file, ignored).permissions() & std::filesystem::perms::others_read)
        != std::filesystem::perms::none;
}

// Projects are copied and sent around.
bool isInProject(const std::filesystem::path& file)
{
    std::error_code ignored;
    std::filesystem::path folder = std::filesystem::canonical(file, ignored).parent_path();
    for (; folder.has_relative_path(); folder = folder.parent_path())
        if (std::filesystem::exists(folder / "project.json", ignored)) return true;
    return false;
}

// A key with a password of its own, for which the program would stop and ask its terminal.
bool isEncrypted(const std::filesystem::path& key)
{
    std::ifstream stream{key};
    std::string line;
    for (int i = 0; i < 3 && std::getline(stream, line); ++i)
        if (line.find("ENCRYPTED") != std::string::npos) return true;
    return false;
}

} // namespace

bool BrokerAddress::isLocal() const { return !socket.empty() || host == "localhost" || isLoopback(host); }

std::string BrokerAddress::text() const
{
    if (!socket.empty()) return std::string{socketPrefix}.append(socket.string());
    std::string text = host.find(':') == std::string::npos ? host : std::string{"["}.append(host).append("]");
    return text.append(":").append(std::to_string(port));
}

std::variant<BrokerAddress, std::string> parseBrokerAddress(std::string_view text)
{
    BrokerAddress address;
    if (text.starts_with(socketPrefix)) {
        address.socket = text.substr(socketPrefix.size());
        if (!address.socket.is_absolute()) return "unix: is followed by the full path of the broker's socket";
        return address;
    }
    std::string_view port;
    if (text.starts_with('[')) {
        const std::size_t end = text.find(']');
        if (end == std::string_view::npos) return "the address has no closing bracket";
        address.host = text.substr(1, end - 1);
        port = text.substr(end + 1);
    } else {
        const std::size_t colon = text.find(':');
        address.host = text.substr(0, colon);
        port = colon == std::string_view::npos ? std::string_view{} : text.substr(colon);
    }
    if (address.host.empty()) return "the name of the broker's host is missing";
    if (port.empty()) return address;
    const auto [end, error] = std::from_chars(port.data() + 1, port.data() + port.size(), address.port);
    if (port.front() != ':' || error != std::errc{} || end != port.data() + port.size() || address.port < 1
        || address.port > largestPort)
        return std::string{"the port must be 1 to 65535, not "}.append(port);
    return address;
}

std::string problemOf(const BrokerAddress& address)
{
    for (const auto* file : {&address.authority, &address.certificate, &address.key, &address.passwordFile})
        if (!file->empty() && !isReadable(*file)) return file->string() + ": cannot be read";
    for (const auto* secret : {&address.key, &address.passwordFile}) {
        if (secret->empty()) continue;
        if (isOpenToOthers(*secret))
            return secret->string() + ": everybody can read it; it must belong to its user alone (chmod 600)";
        if (isInProject(*secret))
            return secret->string() + ": is in a project, which is copied and sent around";
    }
    if (address.certificate.empty() != address.key.empty())
        return "a certificate and its key belong together";
    if (isEncrypted(address.key))
        return address.key.string() + ": is encrypted, and nobody is there to type its password";
    if (!address.certificate.empty() && address.authority.empty())
        return "a certificate needs the authority that the broker's own is checked against";
    if (!address.isLocal() && address.authority.empty())
        return address.text()
            + ": a broker on another machine needs an encrypted connection; name the authority";
    return {};
}

} // namespace servopanel::mqtt

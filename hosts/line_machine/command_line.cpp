#include "line_machine/command_line.h"

#include <utility>

namespace servopanel::line_machine {

const char* const usage = R"(servo-machine PROJECT [OPTION...]

Runs the simulated machines of a project as processes on a broker, for panels on the same broker.

  --broker ADDRESS     HOST[:PORT] or unix:/PATH, 127.0.0.1:1883 when missing
  --machine NAME       only this machine of the project, several times for several
  --user NAME          user name at the broker
  --password-file FILE its first line is the password
  --ca FILE            encrypts the connection; the broker's certificate is checked against this one
  --cert FILE          certificate of this machine
  --key FILE           its key
  --faults             lets pm/v1/<machine>/fault order faults, for tests
  --help               this text
)";

std::variant<CommandLine, std::string> parseCommandLine(const std::vector<std::string>& arguments)
{
    CommandLine line;
    std::string address;
    std::string user;
    std::filesystem::path authority;
    std::filesystem::path certificate;
    std::filesystem::path key;
    std::filesystem::path password;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--help") {
            line.help = true;
            return line;
        }
        if (argument == "--faults") {
            line.faults = true;
            continue;
        }
        if (!argument.starts_with("--")) {
            if (!line.project.empty()) return "only one project can be run: " + argument;
            line.project = argument;
            continue;
        }
        if (i + 1 == arguments.size()) return argument + " needs a value";
        const std::string& value = arguments[++i];
        if (argument == "--broker")
            address = value;
        else if (argument == "--machine")
            line.machines.push_back(value);
        else if (argument == "--user")
            user = value;
        else if (argument == "--password-file")
            password = value;
        else if (argument == "--ca")
            authority = value;
        else if (argument == "--cert")
            certificate = value;
        else if (argument == "--key")
            key = value;
        else
            return "unknown option " + argument;
    }
    if (line.project.empty()) return "the project is missing";
    if (!address.empty()) {
        auto parsed = mqtt::parseBrokerAddress(address);
        if (const auto* const problem = std::get_if<std::string>(&parsed))
            return "--broker " + address + ": " + *problem;
        line.broker = std::get<mqtt::BrokerAddress>(std::move(parsed));
    }
    line.broker.user = user;
    line.broker.passwordFile = password;
    line.broker.authority = authority;
    line.broker.certificate = certificate;
    line.broker.key = key;
    return line;
}

} // namespace servopanel::line_machine

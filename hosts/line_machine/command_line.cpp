#include "line_machine/command_line.h"

#include "mqtt/broker_options.h"

#include <utility>

namespace servopanel::line_machine {

std::string usage()
{
    std::string text = R"(servo-machine PROJECT [OPTION...]

Runs the simulated machines of a project as processes on a broker, for panels on the same broker.

  --broker ADDRESS     HOST[:PORT] or unix:/PATH, 127.0.0.1:1883 when missing
  --machine NAME       only this machine of the project, several times for several
)";
    text.append(mqtt::brokerOptionsHelp);
    text.append(R"(  --faults             lets pm/v1/<machine>/fault order faults, for tests
  --help               this text
)");
    return text;
}

std::variant<CommandLine, std::string> parseCommandLine(const std::vector<std::string>& arguments)
{
    CommandLine line;
    mqtt::BrokerOptions broker;
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
        if (argument == "--machine")
            line.machines.push_back(value);
        else if (mqtt::BrokerOptions::knows(argument))
            broker.set(argument, value);
        else
            return "unknown option " + argument;
    }
    if (line.project.empty()) return "the project is missing";
    auto address = broker.address();
    if (auto* const problem = std::get_if<std::string>(&address)) return std::move(*problem);
    line.broker = std::get<mqtt::BrokerAddress>(std::move(address));
    return line;
}

} // namespace servopanel::line_machine

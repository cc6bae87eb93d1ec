#include "params/command_line.h"

#include "machine/access_level.h"
#include "portable/whole_number.h"

#include <algorithm>
#include <map>
#include <utility>

namespace servopanel::params {

namespace {

using Command = CommandLine::Command;

constexpr unsigned forDump = 1;
constexpr unsigned forDiff = 2;
constexpr unsigned forLoad = 4;
constexpr unsigned forAll = forDump | forDiff | forLoad;

struct Option {
    std::string_view name;
    bool takesValue;
    unsigned commands;
};

constexpr Option options[]{
    {"--machine", true, forDump | forLoad},
    {"--servo", true, forDump | forLoad},
    {"--project", true, forDiff | forLoad},
    {"--language", true, forDump | forDiff},
    {"--name", true, forAll},
    {"-o", true, forDump},
    {"--limits", false, forDiff},
    {"--from", true, forLoad},
    {"--level", true, forLoad},
    {"--apply", false, forLoad},
    {"--ask", false, forLoad},
    {"--all", false, forLoad},
    {"--no-definitions", false, forLoad},
    {"--only", true, forLoad},
    {"--except", true, forLoad},
    {"--journal", true, forLoad},
    {"--no-journal", false, forLoad},
    {"--other-machine", false, forLoad},
};

unsigned bitOf(Command command)
{
    return command == Command::Dump ? forDump : command == Command::Diff ? forDiff : forLoad;
}

// What is wrong with a value; empty when nothing is.
std::string take(CommandLine& line, std::string_view option, const std::string& value)
{
    if (option == "--servo" || option == "--from") {
        const auto number = portable::wholeNumber<int>(value);
        if (!number) return "'" + value + "' is no number of a servo";
        if (option == "--from")
            line.from = number;
        else if (std::find(line.servos.begin(), line.servos.end(), *number) == line.servos.end())
            line.servos.push_back(*number);
    } else if (option == "--level") {
        const auto level = portable::wholeNumber<int>(value);
        if (!level || *level < 0 || *level > machine::highestAccessLevel)
            return "'" + value + "' is no level from 0 to 5";
        line.level = static_cast<std::int16_t>(*level);
    } else if (option == "--machine") {
        line.machine = value;
    } else if (option == "--project") {
        line.project = value;
    } else if (option == "--language") {
        line.language = value;
    } else if (option == "--name") {
        line.name = value;
    } else if (option == "-o") {
        line.output = value;
    } else if (option == "--only") {
        line.only.push_back(value);
    } else if (option == "--except") {
        line.except.push_back(value);
    } else if (option == "--journal") {
        line.journal = value;
    }
    return {};
}

void setFlag(CommandLine& line, std::string_view option)
{
    if (option == "--limits") line.limits = true;
    if (option == "--apply") line.apply = true;
    if (option == "--ask") line.ask = true;
    if (option == "--all") line.all = true;
    if (option == "--no-definitions") line.noDefinitions = true;
    if (option == "--no-journal") line.noJournal = true;
    if (option == "--other-machine") line.otherMachine = true;
}

// What the command lacks or cannot have; empty when it is complete.
std::string problemOf(CommandLine& line)
{
    const std::size_t count = line.plain.size();
    if (line.command == Command::Dump) {
        if (count != 1) return count == 0 ? "the project is missing" : "only one project can be read";
        line.project = line.plain.front();
        if (line.machine.empty()) return "--machine says whose parameters are meant";
    } else if (line.command == Command::Diff) {
        const std::size_t sides = line.limits ? 1 : 2;
        if (count != sides)
            return line.limits ? "with --limits there is one side" : "two sides are compared with each other";
        if (line.limits && line.project.empty())
            return "--limits needs --project, whose definitions are meant";
    } else {
        if (count != 1) return count == 0 ? "the file is missing" : "only one file can be loaded";
        if (line.machine.empty()) return "--machine says which machine is meant";
        if (!line.broker)
            return "--broker says where the machine is; without a broker a machine lives within its panel, "
                   "and "
                   "only that writes to it";
        if (line.ask && !line.apply) return "--ask is of use with --apply only";
        if (!line.journal.empty() && line.noJournal) return "--journal and --no-journal: one of them";
        if (line.apply && line.journal.empty() && !line.noJournal)
            return "--apply needs --journal FOLDER, where every write is kept; --no-journal goes on without";
    }
    return {};
}

} // namespace

std::string usage()
{
    std::string text = R"(servo-params dump PROJECT --machine NAME [OPTION...]
servo-params diff SIDE SIDE [OPTION...]
servo-params diff SIDE --limits --project PROJECT [OPTION...]
servo-params load FILE --machine NAME --broker ADDRESS [OPTION...]

Keeps the parameters of servos in files: setpoints, switches and drawing numbers, not actual values.

  dump   writes the parameters of a machine, or of some of its servos, as CSV: one line for each element
  diff   shows what differs; a SIDE is a file of dump, a servo such as M1/3, or a whole machine such as M1
  load   shows what a file would change in a machine, and writes it with --apply

  --machine NAME       designation of the machine
  --servo NUMBER       only this servo, several times for several. load: a file of one servo may go to others
  --project PROJECT    folder of the project: names, units, definitions
  --broker ADDRESS     the machine on a broker: HOST[:PORT] or unix:/PATH. Without it dump and diff take the
                       start values of the project
  --name NAME          our name on the broker, like that of a panel; otherwise that of this computer
)";
    text.append(mqtt::brokerOptionsHelp);
    text.append(R"(
dump
  -o FILE              into this file, which is new or a former dump
  --language CODE      names and units in this language of the project; diff too

diff
  --limits             shows what lies beyond the limits of the project's definitions

load
  --apply              writes; without it nothing is sent
  --level NUMBER       access level of whoever writes, 0 when missing; the machine checks it
  --only ROW           only such rows, several times for several: servo_para, servo_para:3, or a row's name
  --except ROW         all but such rows
  --ask                asks for each row
  --from NUMBER        takes this servo of the file
  --all                shows the rows too that the machine holds already
  --no-definitions     does without the limits of the project's definitions; those of the machine remain
  --journal FOLDER     keeps a journal of the writes there, for servo-journal; --apply needs it
  --other-machine      writes although the file is of another machine
  --no-journal         writes without one; nobody can say later what was written, or take it back

  --help               this text

Elements count from 0. A machine takes over what was written when it is told so, as by a panel; load tells it.
Interrupted (Ctrl-C), load ends after the present write, tells the machine and shows what was not sent.

Status: 0 equal or all written, 1 differences, 2 errors, or rows that were not written.
)");
    return text;
}

std::variant<CommandLine, std::string> parseCommandLine(const std::vector<std::string>& arguments)
{
    CommandLine line;
    if (std::find(arguments.begin(), arguments.end(), "--help") != arguments.end()) return line;
    if (arguments.empty()) return "a command is missing: dump, diff or load";
    const std::map<std::string_view, Command> commands{
        {"dump", Command::Dump}, {"diff", Command::Diff}, {"load", Command::Load}};
    const auto command = commands.find(arguments.front());
    if (command == commands.end()) return "there is no command '" + arguments.front() + "'";
    line.command = command->second;

    mqtt::BrokerOptions broker;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument.size() < 2 || argument.front() != '-') {
            line.plain.push_back(argument);
            continue;
        }
        const auto* const known =
            std::find_if(std::begin(options), std::end(options), [&](const Option& one) {
                return one.name == argument && (one.commands & bitOf(line.command)) != 0;
            });
        const bool isOfBroker = mqtt::BrokerOptions::knows(argument);
        if (known == std::end(options) && !isOfBroker)
            return std::string{command->first}.append(" has no option ").append(argument);
        if (!isOfBroker && !known->takesValue) {
            setFlag(line, argument);
            continue;
        }
        if (i + 1 == arguments.size()) return argument + " needs a value";
        const std::string& value = arguments[++i];
        if (isOfBroker)
            broker.set(argument, value);
        else if (std::string problem = take(line, argument, value); !problem.empty())
            return problem;
    }
    if (broker.any()) {
        auto address = broker.address();
        if (auto* const problem = std::get_if<std::string>(&address)) return std::move(*problem);
        line.broker = std::get<mqtt::BrokerAddress>(std::move(address));
    }
    if (std::string problem = problemOf(line); !problem.empty()) return problem;
    return line;
}

} // namespace servopanel::params

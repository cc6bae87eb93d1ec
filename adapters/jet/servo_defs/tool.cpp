#include "jet/servo_defs/tool.h"

#include "basic/error.h"
#include "jet/servo_defs/commands.h"

#include <algorithm>
#include <string_view>

namespace servopanel::jet {

namespace {

constexpr std::string_view help = R"(servo-defs: the parameter definitions of a panel's database

  servo-defs list FILE [--machine TYPE] [--variable TEXT]
        Shows the definitions, all or those of one machine type or whose variable's name contains TEXT.
  servo-defs check FILE [--project DIR]
        Looks for duplicates, limits in the wrong order or outside the absolute ones, access levels outside 0..5,
        elements that a variable does not have, and values that are missing or no numbers. With a project (its
        folder) also for variables that no configured servo of it has, and for servos that have no definitions.
  servo-defs export FILE [CSV] [--force]
        Writes CSV to a new file, or to the standard output. --force replaces a text file that exists.
  servo-defs diff FILE FILE
        Shows what differs between two databases, two CSV files, or one of each.
  servo-defs import FILE CSV [--apply]
        Shows what the CSV file would change in the database. With --apply it is changed: all of it or, when anything
        stands against it, nothing. Rows cannot be added; those that the CSV file lacks stay as they are.
  servo-defs create FILE CSV [--jet3] [--force]
        Makes a new database (Jet 4, or Jet 3). --force replaces a database that exists.

CSV files are UTF-8, with commas or semicolons between the cells and points in the numbers. Their first line names the
columns machine_type, var_name, abs_max, abs_min, offset_or_bitno, Max, Min, Pass. An empty cell is no value, "" an
empty text. An apostrophe before a text that begins with = + - @, a tab or a line end keeps spreadsheets from taking it
for a formula; it is no part of the text.

Status: 0 good, 1 findings or differences, 2 errors.

Examples:
  servo-defs list Servo/Servo.mdb --machine M1
  servo-defs export Servo/Servo.mdb limits.csv
  servo-defs import Servo/Servo.mdb limits.csv            what would change?
  servo-defs import Servo/Servo.mdb limits.csv --apply
  servo-defs check Servo/Servo.mdb --project .
  servo-defs create Servo/Servo.mdb Servo/Servo.csv
)";

struct Command {
    std::string_view name;
    Result (*run)(const Arguments&, ToolOutput&);
};

constexpr Command commands[]{
    {"list", listDefinitions},
    {"check", checkDefinitions},
    {"export", exportDefinitions},
    {"diff", diffDefinitions},
    {"import", importDefinitions},
    {"create", createDatabase},
};

bool asksForHelp(const std::vector<std::string>& arguments)
{
    const auto end = std::find(arguments.begin(), arguments.end(), "--");
    return std::find(arguments.begin(), end, "--help") != end
        || std::find(arguments.begin(), end, "-h") != end;
}

} // namespace

Result runTool(const std::vector<std::string>& arguments, ToolOutput& output)
{
    if (asksForHelp(arguments)) {
        output.text = help;
        return Result::Good;
    }
    const auto* command = arguments.empty()
        ? std::end(commands)
        : std::find_if(std::begin(commands), std::end(commands),
            [&](const Command& known) { return known.name == arguments.front(); });
    if (command == std::end(commands)) {
        const bool isOption = !arguments.empty() && arguments.front().substr(0, 1) == "-";
        output.errors = arguments.empty() ? "A command is missing."
                                          : std::string{"There is no "} + (isOption ? "option" : "command")
                + " '" + arguments.front() + "'.";
        output.errors += " servo-defs --help shows what there is.\n";
        return Result::Failed;
    }
    try {
        return command->run({arguments.begin() + 1, arguments.end()}, output);
    } catch (const basic::Error& error) {
        output.errors += "servo-defs " + arguments.front() + ": " + error.description + '\n';
        return Result::Failed;
    }
}

} // namespace servopanel::jet

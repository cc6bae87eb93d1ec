#include "journal/command_line.h"

#include "journal/time_text.h"

#include <charconv>
#include <string_view>

namespace servopanel::journal {

namespace {

// Whether the option is known; what is wrong with its value goes into problem.
bool takeOption(Filter& filter, const std::string& option, const std::string& value, std::string& problem)
{
    if (option == "--since" || option == "--until") {
        const auto span = timeNamed(value);
        if (!span)
            problem = "'" + value + "' is no time such as 2026-11-22 or 2026-11-22T01:19";
        else if (option == "--since")
            filter.since = span->begin;
        else
            filter.before = span->end;
    } else if (option == "--servo") {
        int number = 0;
        const char* const end = value.data() + value.size();
        const auto read = std::from_chars(value.data(), end, number);
        if (read.ec == std::errc{} && read.ptr == end)
            filter.servo = number;
        else
            problem = "'" + value + "' is no number of a servo";
    } else if (option == "--machine") {
        filter.machine = value;
    } else if (option == "--panel") {
        filter.panel = value;
    } else if (option == "--variable") {
        filter.variable = value;
    } else if (option == "--result") {
        filter.result = resultNamed(value);
        if (!filter.result || filter.result == Result::Open)
            problem = "'" + value + "' is no result; they are done, refused and unknown";
    } else {
        return false;
    }
    return true;
}

} // namespace

std::string_view usage()
{
    return R"(servo-journal FOLDER [OPTION...]

Shows what a panel has written to its machines, from the journal in FOLDER.

  --since TIME       from then on: 2026-11-22, 2026-11-22T01:19 or 2026-11-22T01:19:05, in UTC
  --until TIME       until then; a day or a minute to its end
  --servo NUMBER     only writes to this servo
  --machine NAME     only writes to the machine of this designation
  --panel NAME       only writes of this panel
  --variable TEXT    only variables whose name contains this text
  --result RESULT    only writes that were done or refused, or whose end is unknown
  --csv              as CSV, for spreadsheets
  --help             this text

Elements count from 0, "all" is the whole value; "-" stands for an old value that the panel had not read.

Status: 0 good, 1 some lines of the journal are broken and were passed over, 2 errors.
)";
}

std::variant<CommandLine, std::string> parseCommandLine(const std::vector<std::string>& arguments)
{
    CommandLine line;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--help") {
            line.help = true;
            return line;
        }
        if (argument == "--csv") {
            line.csv = true;
            continue;
        }
        if (!argument.starts_with("--")) {
            if (!line.folder.empty()) return "only one folder can be read: " + argument;
            line.folder = argument;
            continue;
        }
        std::string problem;
        const bool hasValue = i + 1 < arguments.size();
        if (!takeOption(line.filter, argument, hasValue ? arguments[i + 1] : std::string{}, problem))
            return "unknown option " + argument;
        if (!hasValue) return argument + " needs a value";
        if (!problem.empty()) return problem;
        ++i;
    }
    if (line.folder.empty()) return "the folder of the journal is missing";
    return line;
}

} // namespace servopanel::journal

#include "journal/command_line.h"

#include "journal/time_text.h"
#include "machine/access_level.h"
#include "mqtt/broker_options.h"
#include "portable/whole_number.h"

#include <utility>

namespace servopanel::journal {

namespace {

using portable::wholeNumber;

class Parser {
public:
    std::variant<CommandLine, std::string> parse(const std::vector<std::string>& arguments)
    {
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            const std::string& argument = arguments[i];
            if (argument == "--help") {
                line_.help = true;
                return std::move(line_);
            }
            if (takeFlag(argument)) continue;
            if (!argument.starts_with("--")) {
                if (!line_.folder.empty()) return "only one folder can be read: " + argument;
                line_.folder = argument;
                continue;
            }
            const bool hasValue = i + 1 < arguments.size();
            const std::string value = hasValue ? arguments[i + 1] : std::string{};
            if (!takeFilter(argument, value) && !takeUndo(argument, value))
                return "unknown option " + argument;
            if (!hasValue) return argument + " needs a value";
            if (!problem_.empty()) return problem_;
            ++i;
        }
        if (line_.folder.empty()) return "the folder of the journal is missing";
        if (std::string problem = takeTogether(); !problem.empty()) return problem;
        return std::move(line_);
    }

private:
    bool takeFlag(const std::string& option)
    {
        if (option == "--csv")
            line_.csv = true;
        else if (option == "--changes")
            line_.filter.onlyChanges = true;
        else if (option == "--apply")
            undo_.apply = takeOnlyUndo(option);
        else
            return false;
        return true;
    }

    // Whether the option is known, here and below; what is wrong with its value goes into problem_.
    bool takeFilter(const std::string& option, const std::string& value)
    {
        Filter& filter = line_.filter;
        if (option == "--since" || option == "--until") {
            const auto span = timeNamed(value);
            if (!span)
                fail(value, "no time such as 2026-11-22 or 2026-11-22T01:19");
            else if (option == "--since")
                filter.since = span->begin;
            else
                filter.before = span->end;
        } else if (option == "--servo") {
            filter.servo = number<int>(value, "no number of a servo");
        } else if (option == "--element") {
            filter.element = number<int>(value, "no number of an element");
        } else if (option == "--machine") {
            filter.machine = value;
        } else if (option == "--panel") {
            filter.panel = value;
        } else if (option == "--variable") {
            filter.variable = value;
        } else if (option == "--result") {
            filter.result = resultNamed(value);
            if (!filter.result || filter.result == Result::Open)
                fail(value, "no result; they are done, refused and unknown");
        } else {
            return false;
        }
        return true;
    }

    bool takeUndo(const std::string& option, const std::string& value)
    {
        if (option == "--undo") {
            isUndo_ = true;
            takeWrite(value);
            return true;
        }
        if (mqtt::BrokerOptions::knows(option)) {
            broker_.set(option, value);
        } else if (option == "--name") {
            undo_.name = value;
        } else if (option == "--journal") {
            undo_.journal = value;
        } else if (option == "--level") {
            const int level = number<int>(value, "no access level from 0 to 5").value_or(0);
            if (level < 0 || level > machine::highestAccessLevel)
                fail(value, "no access level from 0 to 5");
            else
                undo_.level = static_cast<std::int16_t>(level);
        } else {
            return false;
        }
        return takeOnlyUndo(option);
    }

    // "7", "2026-11-22T01:19:05.250Z" or both: "7@2026-11-22T01:19:05.250Z".
    void takeWrite(const std::string& value)
    {
        const std::size_t sign = value.find('@');
        line_.filter.write = wholeNumber<std::int64_t>(value.substr(0, sign));
        if (sign != std::string::npos || !line_.filter.write)
            line_.filter.within = timeNamed(value.substr(sign == std::string::npos ? 0 : sign + 1));
        const bool isWhole =
            sign == std::string::npos || (line_.filter.write.has_value() && line_.filter.within.has_value());
        if (!isWhole || (!line_.filter.write && !line_.filter.within))
            fail(value, "no write such as 7, 7@2026-11-22T01:19 or 2026-11-22T01:19:05.250Z");
    }

    bool takeOnlyUndo(const std::string& option)
    {
        onlyUndo_ = option;
        return true;
    }

    std::string takeTogether()
    {
        if (!isUndo_) return onlyUndo_.empty() ? std::string{} : onlyUndo_ + " needs --undo";
        if (line_.csv) return "--csv shows writes and --undo takes one back: one of them";
        if (!broker_.any())
            return "--undo needs --broker; a machine without one lives in the panel, and only the panel can "
                   "write to it";
        auto address = broker_.address();
        if (auto* const problem = std::get_if<std::string>(&address)) return std::move(*problem);
        undo_.broker = std::get<mqtt::BrokerAddress>(std::move(address));
        line_.undo = std::move(undo_);
        return {};
    }

    template <class T>
    std::optional<T> number(const std::string& value, std::string_view problem)
    {
        const auto read = wholeNumber<T>(value);
        if (!read) fail(value, problem);
        return read;
    }
    void fail(const std::string& value, std::string_view problem)
    {
        problem_ = "'" + value + "' is ";
        problem_.append(problem);
    }

    CommandLine line_;
    UndoOptions undo_;
    mqtt::BrokerOptions broker_;
    bool isUndo_ = false;
    std::string onlyUndo_; // an option that means nothing without --undo
    std::string problem_;
};

} // namespace

std::string usage()
{
    std::string text = R"(servo-journal FOLDER [OPTION...]

Shows what a panel has written to its machines, from the journal in FOLDER, or takes a write back.

  --since TIME         from then on: 2026-11-22, 2026-11-22T01:19 or 2026-11-22T01:19:05, in UTC
  --until TIME         until then; a day or a minute to its end
  --servo NUMBER       only writes to this servo
  --machine NAME       only writes to the machine of this designation
  --panel NAME         only writes of this panel
  --variable TEXT      only variables whose name contains this text
  --element NUMBER     only this element of a variable
  --result RESULT      only writes that were done or refused, or whose end is unknown
  --changes            without the writes that change nothing: a confirm writes all setpoints of its page
  --csv                as CSV, for spreadsheets
  --help               this text

  --undo WRITE         shows how this write would be taken back: its number, its time, or 7@2026-11-22T01:19:05.250Z
  --apply              takes it back, if the machine still holds what it wrote; only its elements change
  --broker ADDRESS     where the machine is: HOST[:PORT] or unix:/PATH
  --level N            the user's access level, 0 operator to 5 service; 0 when missing
  --name NAME          on the broker and in the journal; otherwise the computer's
  --journal FOLDER     keeps the new write there, while a panel keeps the journal in the other folder
)";
    text.append(mqtt::brokerOptionsHelp);
    text.append(R"(
Elements count from 0; "all" is the whole value, "none" a write of what the panel had read, unchanged; "-" stands for an
old value that the panel had not read. Writes are numbered from 1 in each run of a panel.

Status: 0 good, 1 some lines of the journal are broken and were passed over, 2 errors, or the machine refused, 3 nobody
knows whether the machine took a write.
)");
    return text;
}

std::variant<CommandLine, std::string> parseCommandLine(const std::vector<std::string>& arguments)
{
    return Parser{}.parse(arguments);
}

} // namespace servopanel::journal

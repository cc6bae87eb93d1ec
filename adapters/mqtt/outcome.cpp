#include "mqtt/outcome.h"

namespace servopanel::mqtt {

namespace {

struct Row {
    Outcome outcome;
    std::string_view code; // empty: no controller says it
    std::string_view text;
};

constexpr Row rows[]{
    {Outcome::Done, "done", "written and read back"},
    {Outcome::UnknownName, "unknown_name", "there is no such variable"},
    {Outcome::OutOfRange, "out_of_range", "the value is out of range"},
    {Outcome::WrongType, "type", "the value is of another type"},
    {Outcome::Absent, "absent", "the drive is not there"},
    {Outcome::ReadOnly, "read_only", "the variable is read-only"},
    {Outcome::LevelTooLow, "level", "the access level is too low"},
    {Outcome::ChangedMeanwhile, "changed", "somebody else has changed the value meanwhile"},
    {Outcome::TooLate, "too_late", "the command reached the machine too late"},
    {Outcome::Busy, "busy", "the controller is busy"},
    {Outcome::Restarted, "restarted", "the controller has restarted meanwhile"},
    {Outcome::ReadBackDiffers, "", "the machine confirmed and holds another value"},
    {Outcome::NoConnection, "", "no connection"},
    {Outcome::NotSentAfterNoAnswer, "", "not sent, because the write before it was not answered"},
    {Outcome::NoAnswer, "", "no answer, and the machine's value cannot be read"},
    {Outcome::NoAnswerButWritten, "", "no answer, but the machine holds the new value"},
    {Outcome::NoAnswerNotWritten, "", "no answer, and the machine does not hold the new value"},
    {Outcome::Bad, "", "the machine does not know the value"},
    {Outcome::Stale, "", "the value may be old"},
};

} // namespace

bool isRefused(Outcome outcome) { return outcome != Outcome::Done && !codeOf(outcome).empty(); }

bool isUnknown(Outcome outcome)
{
    return outcome == Outcome::NoAnswer || outcome == Outcome::NoAnswerButWritten
        || outcome == Outcome::NoAnswerNotWritten;
}

std::string_view describe(Outcome outcome)
{
    for (const Row& row : rows)
        if (row.outcome == outcome) return row.text;
    return {};
}

std::string_view codeOf(Outcome outcome)
{
    for (const Row& row : rows)
        if (row.outcome == outcome) return row.code;
    return {};
}

std::optional<Outcome> outcomeOfCode(std::string_view code)
{
    if (code.empty()) return {};
    for (const Row& row : rows)
        if (row.code == code) return row.outcome;
    return {};
}

} // namespace servopanel::mqtt

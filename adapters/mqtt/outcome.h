#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace servopanel::mqtt {

// How a read or a write ended. The value is the number of the basic::Error, so that a panel can put it into the
// operator's language. Numbers that are classic keep their classic meaning.
enum class Outcome : std::int32_t {
    Done = 0,

    // Refused: the machine holds what it held.
    UnknownName = 5,
    OutOfRange = 6,
    WrongType = 13,
    Absent = 68, // the drive that the variable belongs to is not there
    ReadOnly = 70,
    LevelTooLow = 2101,
    ChangedMeanwhile = 2102, // by somebody else, since the value was read
    TooLate = 2103, // the command reached the machine after its deadline
    Busy = 2104,
    Restarted = 2105, // the controller began a new epoch since the value was read

    // Written, but not what was wanted.
    ReadBackDiffers = 2106, // the machine confirmed and holds another value

    // Not sent: the machine holds what it held.
    NoConnection = 462, // to the broker or from there to the machine; no heartbeat. For reads too.
    NotSentAfterNoAnswer = 2113, // an earlier write of the same confirm had no answer

    // Unknown: sent and not answered in time.
    NoAnswer = 2110, // and the machine's value cannot be read
    NoAnswerButWritten = 2111, // but the machine holds the new value
    NoAnswerNotWritten = 2112, // and the machine holds another value

    // Reads only.
    Bad = 57, // the machine itself says that it does not know the value
    Stale = 2107, // the value may have changed since it was received
};

bool isRefused(Outcome outcome);
bool isUnknown(Outcome outcome);

// One English sentence without a full stop, for reports.
std::string_view describe(Outcome outcome);

// "done", "out_of_range" and so on: the codes of ack/<panel>. Nothing for what no controller says.
std::string_view codeOf(Outcome outcome);
std::optional<Outcome> outcomeOfCode(std::string_view code);

} // namespace servopanel::mqtt

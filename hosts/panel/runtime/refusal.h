#pragma once

#include "panel/look/panel_text.h"

#include <QString>

#include <cstdint>

namespace servopanel::panel {

// Why the machine keeps its own value, as far as the number of an error tells.
enum class RefusalReason {
    NotReadable,
    OutOfRange,
    WrongType,
    ReadOnly,
    NoLink,
    NotTaken, // something else was written than what was entered
    LevelTooLow,
    ChangedMeanwhile, // by somebody else, or by the machine itself
    TooLate,
    Busy,
    Restarted,
    Differs, // the machine confirmed and holds another value
    Absent, // the drive
    Old,
    NotSent, // because the write before it had no answer
    NoAnswer,
    NoAnswerButWritten,
    NoAnswerNotWritten,
    Other
};

// The reason behind the number of an error that reading or writing a process variable raised.
RefusalReason reasonOf(std::int32_t error, bool wasReading);

// Whether nobody knows what the machine holds, or will.
bool isUnknown(RefusalReason reason);

// Whether the machine holds what it held for a reason that may pass by itself, so that the same write may come right
// later: it never left the panel, or the controller had no time for it or has begun anew.
bool mayPass(RefusalReason reason);

// What stands behind a field's caption.
QString reasonWord(RefusalReason reason, const PanelWords& words);

} // namespace servopanel::panel

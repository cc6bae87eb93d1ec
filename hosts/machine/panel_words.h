#pragma once

#include <span>
#include <string_view>

namespace servopanel::machine {

// Words of the panel itself. A project may give its own under "Panel.<name>"; otherwise the panel's German, English,
// Arabic or Chinese ones are used.
enum class PanelText {
    Ok,
    Cancel,
    Clear,
    Lowest,
    Highest,
    TooSmall,
    TooLarge,
    NoSign, // before the lower limit, where it allows nothing below 0
    NoFraction, // where the machine holds whole numbers
    TooLong, // before the number of characters that fit
    LimitsUnknown,
    OldValue, // of the number that the mask begins with
    NoNumber,
    Level,
    LevelRange,
    LimitsCrossed,
    Definition,
    DefinitionMode, // in the header, while a touch on a value opens its limits and access
    On,
    Off,
    Machine,
    AccessLevel,
    Errors,
    Close,
    Back,
    Screen,
    Message,
    Languages,
    LinkGood,
    LinkPartly, // some of the values that are shown could not be read
    LinkBad,
    Writing, // while the answer is awaited
    Written, // before the number of values
    NotWritten, // before the field and the reason
    PartlyWritten, // likewise, when other values are written
    RefusedUnreadable, // behind the caption of a field, like the other reasons
    RefusedRange,
    RefusedType,
    RefusedReadOnly,
    RefusedNotTaken,
    RefusedOther,
    Overwritten, // before what the machine held and what it holds now
    RefusedLevel,
    RefusedChanged, // before the machine's value, in brackets, where it is known
    RefusedTooLate,
    RefusedBusy,
    RefusedRestarted,
    RefusedDiffers,
    RefusedAbsent,
    RefusedOld,
    NotSent, // because of a write before it
    NoAnswer,
    NoAnswerButWritten,
    NoAnswerNotWritten,
    NotSure, // like NotWritten, when nobody knows
    NotEditable, // before the field and the reason
    NotTold, // instead of a caption: the machine has the values and does not know of it
    ClearReports,
    FirstTime,
    LastTime,
    Times,
    Procedure,
    Trend,
    TrendShared,
    TrendFreeze,
    TrendContinue,
    TrendAdd,
    TrendFull,
    Seconds, // behind a number, on the time axis
    Minutes, // likewise, and on the keys for the time that is shown
    NoScreen, // before its number; this and the following stand in the list of reports
    NoFile, // behind the file's name
    NoTrace, // before the file's name
    NoJournal, // before the file's name and the reason
    LowRows, // before the least diagonal of the screen, inches
    ReadAnewLater,
    NotReadAnew,
};

struct PanelWord {
    PanelText text;
    std::string_view key; // "Panel.Ok"
    const char* german;
    const char* english;
    const char* arabic;
    const char* chinese;

    // The word in a language by its code, "de" or "de-AT"; English where the panel does not know the language.
    const char* in(std::string_view languageCode) const;
};

// All of them, in UTF-8.
std::span<const PanelWord> panelWords();
const PanelWord& panelWord(PanelText text);

// Whether the panel has words of its own in a language.
bool speaks(std::string_view languageCode);

} // namespace servopanel::machine

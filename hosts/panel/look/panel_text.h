#pragma once

#include <QString>

#include <functional>
#include <string_view>

namespace servopanel::panel {

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
    LimitsUnknown,
    NoNumber,
    Level,
    LevelRange,
    LimitsCrossed,
    Definition,
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
    Written, // before the number of values
    NotWritten, // before the field and the reason
    RefusedUnreadable, // behind the caption of a field, like the other reasons
    RefusedRange,
    RefusedType,
    RefusedReadOnly,
    RefusedNotTaken,
    RefusedOther,
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
};

// "Panel.Ok" and so on.
std::string_view panelTextKey(PanelText text);

// The panel's own word in a language by its code; English where it does not know the language.
QString panelWord(PanelText text, std::string_view languageCode);

using PanelWords = std::function<QString(PanelText)>;

} // namespace servopanel::panel

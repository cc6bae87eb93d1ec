#include "panel/runtime/refusal.h"

#include "mqtt/outcome.h"

namespace servopanel::panel {

using mqtt::Outcome;

RefusalReason reasonOf(std::int32_t error, bool wasReading)
{
    const RefusalReason other = wasReading ? RefusalReason::NotReadable : RefusalReason::Other;
    switch (static_cast<Outcome>(error)) {
    case Outcome::OutOfRange: return RefusalReason::OutOfRange;
    case Outcome::WrongType: return RefusalReason::WrongType;
    case Outcome::ReadOnly: return wasReading ? RefusalReason::NotReadable : RefusalReason::ReadOnly;
    case Outcome::NoConnection: return RefusalReason::NoLink;
    case Outcome::Absent: return RefusalReason::Absent;
    case Outcome::LevelTooLow: return RefusalReason::LevelTooLow;
    case Outcome::ChangedMeanwhile: return RefusalReason::ChangedMeanwhile;
    case Outcome::TooLate: return RefusalReason::TooLate;
    case Outcome::Busy: return RefusalReason::Busy;
    case Outcome::Restarted: return RefusalReason::Restarted;
    case Outcome::ReadBackDiffers: return RefusalReason::Differs;
    case Outcome::NotSentAfterNoAnswer: return RefusalReason::NotSent;
    case Outcome::NoAnswer: return RefusalReason::NoAnswer;
    case Outcome::NoAnswerButWritten: return RefusalReason::NoAnswerButWritten;
    case Outcome::NoAnswerNotWritten: return RefusalReason::NoAnswerNotWritten;
    case Outcome::Stale: return RefusalReason::Old;
    case Outcome::Bad: return RefusalReason::NotReadable;
    case Outcome::UnknownName:
    case Outcome::Done: return other;
    }
    return other;
}

bool isUnknown(RefusalReason reason)
{
    return reason == RefusalReason::NoAnswer || reason == RefusalReason::NoAnswerButWritten
        || reason == RefusalReason::NoAnswerNotWritten;
}

bool mayPass(RefusalReason reason)
{
    return reason == RefusalReason::NotReadable || reason == RefusalReason::Old
        || reason == RefusalReason::NoLink || reason == RefusalReason::NotSent
        || reason == RefusalReason::Busy || reason == RefusalReason::TooLate
        || reason == RefusalReason::Restarted;
}

QString reasonWord(RefusalReason reason, const PanelWords& words)
{
    switch (reason) {
    case RefusalReason::NotReadable: return words(PanelText::RefusedUnreadable);
    case RefusalReason::OutOfRange: return words(PanelText::RefusedRange);
    case RefusalReason::WrongType: return words(PanelText::RefusedType);
    case RefusalReason::ReadOnly: return words(PanelText::RefusedReadOnly);
    case RefusalReason::NoLink: return words(PanelText::LinkBad);
    case RefusalReason::NotTaken: return words(PanelText::RefusedNotTaken);
    case RefusalReason::LevelTooLow: return words(PanelText::RefusedLevel);
    case RefusalReason::ChangedMeanwhile: return words(PanelText::RefusedChanged);
    case RefusalReason::TooLate: return words(PanelText::RefusedTooLate);
    case RefusalReason::Busy: return words(PanelText::RefusedBusy);
    case RefusalReason::Restarted: return words(PanelText::RefusedRestarted);
    case RefusalReason::Differs: return words(PanelText::RefusedDiffers);
    case RefusalReason::Absent: return words(PanelText::RefusedAbsent);
    case RefusalReason::Old: return words(PanelText::RefusedOld);
    case RefusalReason::NotSent: return words(PanelText::NotSent);
    case RefusalReason::NoAnswer: return words(PanelText::NoAnswer);
    case RefusalReason::NoAnswerButWritten: return words(PanelText::NoAnswerButWritten);
    case RefusalReason::NoAnswerNotWritten: return words(PanelText::NoAnswerNotWritten);
    case RefusalReason::Other: return words(PanelText::RefusedOther);
    }
    return words(PanelText::RefusedOther);
}

} // namespace servopanel::panel

#include "panel/runtime/confirm_answers.h"

#include "basic/error.h"
#include "panel/form/input_value.h"

#include <algorithm>

namespace servopanel::panel {

namespace {

// After a write without an answer: its deadline has passed, and a heartbeat that makes the value good again was sent
// after that. What the machine holds then is final.
constexpr std::int64_t finalMilliseconds = 2500;

} // namespace

ConfirmAnswers::ConfirmAnswers(WatchedVariables& variables, AnswerStrip& strip, PanelWords words,
    std::function<void(const QString&)> note)
    : variables_{variables}
    , strip_{strip}
    , words_{std::move(words)}
    , note_{std::move(note)}
{
}

void ConfirmAnswers::keyBegins(ControlHost& page)
{
    variables_.startWrites();
    changed_.clear();
    answer_.reset();
    overwritten_.clear();
    page.forEach([this, &page](std::string_view name, std::int16_t index, Child& child) {
        const std::optional<ValueSource> source = valueSource(name, index);
        if (!source || !child.isChanged()) return;
        // The parts of a drawing number are one value.
        const bool isKnown = std::any_of(
            changed_.begin(), changed_.end(), [&](const Field& field) { return field.source == *source; });
        if (!isKnown) changed_.push_back({*source, std::string{name}, index, inputValue(page, name, index)});
    });
}

void ConfirmAnswers::keyEnds(ControlHost& page, bool hasLink)
{
    std::vector<std::string_view> families;
    for (const Field& field : changed_)
        if (std::find(families.begin(), families.end(), field.source.family) == families.end())
            families.push_back(field.source.family);
    wasUntold_ = isUntold_;
    answer_ = judgeConfirm(variables_, families, wasUntold_);
    isUntold_ = answer_ && answer_->isUntold;
    if (!answer_) {
        strip_.dismiss();
        return;
    }
    keepUnclear(page);
    findNotTaken();
    findChanged();
    if (!hasLink)
        for (Refusal& refusal : answer_->refusals)
            if (refusal.reason != RefusalReason::NotTaken) refusal.reason = RefusalReason::NoLink;
    std::vector<ValueSource> sources;
    for (const Field& field : changed_)
        sources.push_back(field.source);
    overwritten_ = overwrittenBeside(sources, variables_);
    show(page);
    report(page);
}

void ConfirmAnswers::keepUnclear(ControlHost& page)
{
    for (const WatchedVariables::Write& write : variables_.writes()) {
        // What is written now ends what was unclear of it before.
        std::erase_if(unclear_, [&](const Unclear& one) { return one.variable == write.variable; });
        // The machine takes its flag back; what that holds says nothing.
        if (write.problem.empty() || reasonOf(write.error, false) != RefusalReason::NoAnswer
            || write.family == families::changedFlag)
            continue;
        Unclear unclear{write.variable, write.value, {}, {}, {}};
        for (const Field& field : changed_)
            if (field.source.family == write.family) unclear.sources.push_back(field.source);
        unclear.captions =
            concerned(page, {write.family, write.variable, RefusalReason::NoAnswer, {}, -1, false})
                .join(QStringLiteral(", "));
        unclear_.push_back(std::move(unclear));
    }
}

void ConfirmAnswers::findOut(ControlHost* page, std::int64_t now)
{
    for (auto write = unclear_.begin(); write != unclear_.end();) {
        if (!write->since) write->since = now;
        const auto end = now - *write->since < finalMilliseconds ? std::nullopt : endOf(*write);
        if (!end) {
            ++write;
            continue;
        }
        note_(line(write->captions, reasonWord(*end, words_), write->variable, {}));
        if (answer_)
            for (Refusal& refusal : answer_->refusals)
                if (refusal.variable == write->variable && refusal.reason == RefusalReason::NoAnswer) {
                    refusal.reason = *end;
                    if (page != nullptr) show(*page);
                }
        write = unclear_.erase(write);
    }
}

std::optional<RefusalReason> ConfirmAnswers::endOf(const Unclear& write) const
try {
    const basic::Variant held = variables_.look(write.variable);
    const bool isWritten =
        std::all_of(write.sources.begin(), write.sources.end(), [&](const ValueSource& source) {
            const std::optional<double> wanted = elementValue(source, write.wanted);
            const std::optional<double> now = elementValue(source, held);
            return wanted && now && isSameValue(*wanted, *now, held);
        });
    return isWritten ? RefusalReason::NoAnswerButWritten : RefusalReason::NoAnswerNotWritten;
} catch (const basic::Error&) {
    return std::nullopt;
}

void ConfirmAnswers::show(ControlHost& page)
{
    if (!answer_->refusals.empty())
        strip_.showRefused(head(), reason(page));
    else if (!overwritten_.empty())
        strip_.showWarned(head(), reason(page));
    else
        strip_.showWritten(head());
}

// The library keeps the machine's value where a field is not fit to be written. The operator has to know.
void ConfirmAnswers::findNotTaken()
{
    for (const WatchedVariables::Write& write : variables_.writes()) {
        if (!write.problem.empty()) continue;
        for (const Field& field : changed_) {
            if (field.source.family != write.family || !field.entered) continue;
            const std::optional<double> held = elementValue(field.source, write.value);
            if (held && isSameValue(*field.entered, *held, write.value)) continue;
            answer_->refusals.push_back(
                {write.family, write.variable, RefusalReason::NotTaken, {}, field.source.element});
        }
    }
}

// The page has read the machine anew meanwhile, so that the values which have changed there can be told from those that
// were only refused along with them.
void ConfirmAnswers::findChanged()
{
    std::vector<Refusal> found;
    for (const Refusal& refusal : answer_->refusals) {
        const auto write = std::find_if(variables_.writes().begin(), variables_.writes().end(),
            [&](const WatchedVariables::Write& each) { return each.variable == refusal.variable; });
        const WatchedVariables::Read* const now = variables_.latest(refusal.family);
        std::vector<Refusal> single;
        bool isAnyKnown = false;
        for (const Field& field : changed_) {
            if (field.source.family != refusal.family) continue;
            single.push_back(refusal);
            single.back().element = field.source.element;
            const bool isKnown = now != nullptr && write != variables_.writes().end()
                && elementValue(field.source, now->value) != elementValue(field.source, write->before);
            if (!isKnown) single.back().reason = RefusalReason::NotTaken;
            isAnyKnown = isAnyKnown || isKnown;
        }
        if (refusal.reason != RefusalReason::ChangedMeanwhile || !isAnyKnown || single.size() < 2) {
            found.push_back(refusal);
            continue;
        }
        std::stable_partition(single.begin(), single.end(),
            [](const Refusal& each) { return each.reason == RefusalReason::ChangedMeanwhile; });
        found.insert(found.end(), single.begin(), single.end());
    }
    answer_->refusals = std::move(found);
}

std::vector<ValueSource> ConfirmAnswers::waiting() const
{
    std::vector<ValueSource> waiting;
    if (!answer_) return waiting;
    for (const Field& field : changed_) {
        const auto refusal = std::find_if(answer_->refusals.begin(), answer_->refusals.end(),
            [&](const Refusal& each) { return each.family == field.source.family; });
        const bool isWritten = wasUntold_ || refusal == answer_->refusals.end()
            || refusal->reason == RefusalReason::NoAnswerButWritten;
        if ((isWritten && answer_->isUntold) || (refusal != answer_->refusals.end() && refusal->mayPass))
            waiting.push_back(field.source);
    }
    return waiting;
}

void ConfirmAnswers::languageChanged(ControlHost* page)
{
    if (!answer_) strip_.dismiss();
    if (answer_ && page != nullptr && strip_.isDue()) strip_.retranslate(head(), reason(*page));
}

} // namespace servopanel::panel

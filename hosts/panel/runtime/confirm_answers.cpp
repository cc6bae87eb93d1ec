#include "panel/runtime/confirm_answers.h"

#include "basic/error.h"
#include "panel/form/input_caption.h"
#include "panel/form/input_value.h"
#include "panel/form/vws_var.h"

#include <algorithm>

namespace servopanel::panel {

namespace {

// A variable is written with all of its values and refused as a whole. Some reasons are those of one value only.
bool isOfOneValue(RefusalReason reason)
{
    return reason == RefusalReason::OutOfRange || reason == RefusalReason::WrongType
        || reason == RefusalReason::LevelTooLow || reason == RefusalReason::ChangedMeanwhile
        || reason == RefusalReason::Differs;
}

QString withFurther(QString text, qsizetype further)
{
    if (further > 0) text += QStringLiteral(" (+%1)").arg(further);
    return text;
}

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

QString ConfirmAnswers::told(ControlHost& page, const Overwritten& value) const
{
    QString name;
    page.forEach([&](std::string_view control, std::int16_t index, Child&) {
        const std::optional<ValueSource> source = valueSource(control, index);
        if (!name.isEmpty() || !source || *source != value.source) return;
        name = inputCaption(page, control, index);
    });
    // In one piece and isolated, so that the arrow leads to the new value in every direction of writing.
    const QString change = QChar{0x2066} + valueText(value.before) + QStringLiteral("\u00A0→\u00A0")
        + valueText(value.after) + QChar{0x2069};
    return name + QStringLiteral(": ") + words_(PanelText::Overwritten) + u' ' + change;
}

QStringList ConfirmAnswers::concerned(ControlHost& page, const Refusal& refusal) const
{
    if (refusal.family == families::changedFlag) return {words_(PanelText::NotTold)};
    QStringList captions;
    for (const Field& field : changed_)
        if (field.source.family == refusal.family
            && (refusal.element < 0 || refusal.element == field.source.element))
            captions += inputCaption(page, field.name, field.index);
    return captions;
}

QString ConfirmAnswers::written() const
{
    return words_(PanelText::Written) + u' ' + QString::number(answer_->written);
}

bool ConfirmAnswers::isSure() const
{
    return std::none_of(answer_->refusals.begin(), answer_->refusals.end(),
        [](const Refusal& refusal) { return isUnknown(refusal.reason); });
}

bool ConfirmAnswers::isUntoldAlone() const
{
    return answer_->refusals.size() == 1 && answer_->refusals.front().family == families::changedFlag;
}

QString ConfirmAnswers::head() const
{
    if (answer_->refusals.empty()) return written();
    if (!isSure()) return words_(PanelText::NotSure);
    const bool isPart = answer_->written > 0 && !isUntoldAlone();
    return words_(isPart ? PanelText::PartlyWritten : PanelText::NotWritten);
}

QString ConfirmAnswers::Group::text(const PanelWords& words) const
{
    const QString word = reasonWord(reason, words);
    if (isOfOneOfThem) return captions.join(QStringLiteral(" / ")) + QStringLiteral(": ") + word;
    return withFurther(captions.value(0) + QStringLiteral(": ") + word, captions.size() - 1);
}

std::vector<ConfirmAnswers::Group> ConfirmAnswers::groups(ControlHost& page) const
{
    std::vector<Group> groups;
    for (const Refusal& refusal : answer_->refusals) {
        // That the machine was not told has its own words when there is something else to say.
        if (refusal.family == families::changedFlag && !isUntoldAlone()) continue;
        const QStringList captions = concerned(page, refusal);
        const bool isOfOneOfThem = refusal.element < 0 && captions.size() > 1 && isOfOneValue(refusal.reason);
        const auto same = std::find_if(groups.begin(), groups.end(), [&](const Group& group) {
            return group.reason == refusal.reason && !group.isOfOneOfThem && !isOfOneOfThem;
        });
        if (same == groups.end())
            groups.push_back({refusal.reason, captions, isOfOneOfThem});
        else
            same->captions += captions;
    }
    const auto place = [](const Group& group) {
        if (isUnknown(group.reason)) return 0;
        return group.isOfOneOfThem ? 2 : 1;
    };
    std::stable_sort(groups.begin(), groups.end(),
        [&](const Group& one, const Group& other) { return place(one) < place(other); });
    return groups;
}

QString ConfirmAnswers::reason(ControlHost& page) const
{
    if (answer_->refusals.empty()) return overwritten(page);
    QStringList parts;
    for (const Group& group : groups(page))
        parts += group.text(words_);
    // Whatever the machine holds: it goes on with what it had before.
    if (answer_->isUntold && !isUntoldAlone())
        parts.insert(std::min<qsizetype>(1, parts.size()), words_(PanelText::NotTold));
    // What may be lost at the end are names, which the list of reports has.
    if (answer_->written > 0) parts.insert(isUntoldAlone() ? parts.size() : 0, written());
    if (!overwritten_.empty()) parts += overwritten(page);
    return parts.join(QStringLiteral(". "));
}

QString ConfirmAnswers::overwritten(ControlHost& page) const
{
    if (overwritten_.empty()) return {};
    return withFurther(told(page, overwritten_.front()), static_cast<qsizetype>(overwritten_.size()) - 1);
}

void ConfirmAnswers::report(ControlHost& page)
{
    for (const Overwritten& value : overwritten_)
        note_(told(page, value) + QStringLiteral(" – ") + QString::fromStdString(value.variable));
    for (const Refusal& refusal : answer_->refusals) {
        note_(line(concerned(page, refusal).join(QStringLiteral(", ")), reasonWord(refusal.reason, words_),
            refusal.variable, refusal.description));
    }
    // The latest line stands on top: the number, then the names.
    if (answer_->written > 0 && !answer_->refusals.empty()) note_(written());
}

QString ConfirmAnswers::line(const QString& captions, const QString& reason, const std::string& variable,
    const std::string& description)
{
    QString line = captions + QStringLiteral(": ") + reason;
    // Most descriptions name the variable themselves.
    const bool namesIt = description.find(variable) != std::string::npos;
    if (!namesIt) line += QStringLiteral(" – ") + QString::fromStdString(variable);
    if (!description.empty())
        line +=
            (namesIt ? QStringLiteral(" – ") : QStringLiteral(": ")) + QString::fromStdString(description);
    return line;
}

} // namespace servopanel::panel

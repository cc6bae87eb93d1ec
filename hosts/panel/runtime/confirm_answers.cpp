#include "panel/runtime/confirm_answers.h"

#include "panel/form/input_caption.h"
#include "panel/form/input_value.h"
#include "panel/form/vws_var.h"

#include <algorithm>

namespace servopanel::panel {

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
    findNotTaken();
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

std::vector<ValueSource> ConfirmAnswers::waiting() const
{
    std::vector<ValueSource> waiting;
    if (!answer_) return waiting;
    for (const Field& field : changed_) {
        const auto refusal = std::find_if(answer_->refusals.begin(), answer_->refusals.end(),
            [&](const Refusal& each) { return each.family == field.source.family; });
        const bool isWritten = wasUntold_ || refusal == answer_->refusals.end()
            || refusal->reason == RefusalReason::NoAnswerButWritten;
        if ((isWritten && answer_->isUntold) || (refusal != answer_->refusals.end() && refusal->isUnsent))
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

QString ConfirmAnswers::head() const
{
    if (answer_->refusals.empty()) return written();
    const bool isUnclear = std::any_of(answer_->refusals.begin(), answer_->refusals.end(),
        [](const Refusal& refusal) { return isUnknown(refusal.reason); });
    return words_(isUnclear ? PanelText::NotSure : PanelText::NotWritten);
}

QString ConfirmAnswers::reason(ControlHost& page) const
{
    if (answer_->refusals.empty()) return overwritten(page);
    const Refusal& first = answer_->refusals.front();
    const bool isUntoldBesides = answer_->isUntold && first.family != families::changedFlag;
    qsizetype further = isUntoldBesides ? -2 : -1;
    for (const Refusal& refusal : answer_->refusals)
        further += concerned(page, refusal).size();
    QString reason =
        concerned(page, first).value(0) + QStringLiteral(": ") + reasonWord(first.reason, words_);
    if (further > 0) reason += QStringLiteral(" (+%1)").arg(further);
    // Whatever the machine holds: it goes on with what it had before.
    if (isUntoldBesides) reason += QStringLiteral(". ") + words_(PanelText::NotTold);
    if (answer_->written > 0) reason += QStringLiteral(". ") + written();
    if (!overwritten_.empty()) reason += QStringLiteral(". ") + overwritten(page);
    return reason;
}

QString ConfirmAnswers::overwritten(ControlHost& page) const
{
    if (overwritten_.empty()) return {};
    QString text = told(page, overwritten_.front());
    if (overwritten_.size() > 1) text += QStringLiteral(" (+%1)").arg(overwritten_.size() - 1);
    return text;
}

void ConfirmAnswers::report(ControlHost& page)
{
    for (const Overwritten& value : overwritten_)
        note_(told(page, value) + QStringLiteral(" – ") + QString::fromStdString(value.variable));
    for (const Refusal& refusal : answer_->refusals) {
        QString line = concerned(page, refusal).join(QStringLiteral(", ")) + QStringLiteral(": ")
            + reasonWord(refusal.reason, words_);
        // Most descriptions name the variable themselves.
        const bool namesIt = refusal.description.find(refusal.variable) != std::string::npos;
        if (!namesIt) line += QStringLiteral(" – ") + QString::fromStdString(refusal.variable);
        if (!refusal.description.empty())
            line += (namesIt ? QStringLiteral(" – ") : QStringLiteral(": "))
                + QString::fromStdString(refusal.description);
        note_(line);
    }
}

} // namespace servopanel::panel

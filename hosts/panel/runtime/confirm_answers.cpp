#include "panel/runtime/confirm_answers.h"

#include "panel/form/input_value.h"

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
    page.forEach([this, &page](std::string_view name, std::int16_t index, Child& child) {
        const std::optional<ValueSource> source = valueSource(name, index);
        if (!source || !child.isChanged()) return;
        // The parts of a drawing number are one value.
        const bool isKnown = std::any_of(changed_.begin(), changed_.end(), [&](const Field& field) {
            return field.source.family == source->family && field.source.element == source->element;
        });
        if (!isKnown) changed_.push_back({*source, std::string{name}, index, inputValue(page, name, index)});
    });
}

void ConfirmAnswers::keyEnds(ControlHost& page, bool hasLink)
{
    std::vector<std::string_view> families;
    for (const Field& field : changed_)
        if (std::find(families.begin(), families.end(), field.source.family) == families.end())
            families.push_back(field.source.family);
    answer_ = judgeConfirm(variables_, families);
    if (!answer_) {
        strip_.dismiss();
        return;
    }
    findNotTaken();
    if (!hasLink)
        for (Refusal& refusal : answer_->refusals)
            refusal.reason = RefusalReason::NoLink;
    if (answer_->refusals.empty())
        strip_.showWritten(head());
    else
        strip_.showRefused(head(), reason(page));
    report(page);
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

void ConfirmAnswers::languageChanged(ControlHost* page)
{
    if (answer_ && page != nullptr && strip_.isDue()) strip_.retranslate(head(), reason(*page));
}

QString ConfirmAnswers::reasonWord(RefusalReason reason) const
{
    switch (reason) {
    case RefusalReason::NotReadable: return words_(PanelText::RefusedUnreadable);
    case RefusalReason::OutOfRange: return words_(PanelText::RefusedRange);
    case RefusalReason::WrongType: return words_(PanelText::RefusedType);
    case RefusalReason::ReadOnly: return words_(PanelText::RefusedReadOnly);
    case RefusalReason::NoLink: return words_(PanelText::LinkBad);
    case RefusalReason::NotTaken: return words_(PanelText::RefusedNotTaken);
    default: return words_(PanelText::RefusedOther);
    }
}

QString ConfirmAnswers::caption(ControlHost& page, const Field& field) const
{
    Child* const child = page.find(field.name, field.index);
    const QString caption = child == nullptr ? QString{} : page.beside(*child).caption;
    return caption.isEmpty() ? u'#' + QString::number(field.index) : caption;
}

QStringList ConfirmAnswers::concerned(ControlHost& page, const Refusal& refusal) const
{
    if (refusal.family == families::changedFlag) return {words_(PanelText::NotTold)};
    QStringList captions;
    for (const Field& field : changed_)
        if (field.source.family == refusal.family
            && (refusal.element < 0 || refusal.element == field.source.element))
            captions += caption(page, field);
    return captions;
}

QString ConfirmAnswers::written() const
{
    return words_(PanelText::Written) + u' ' + QString::number(answer_->written);
}

QString ConfirmAnswers::head() const
{
    return answer_->refusals.empty() ? written() : words_(PanelText::NotWritten);
}

QString ConfirmAnswers::reason(ControlHost& page) const
{
    if (answer_->refusals.empty()) return {};
    const Refusal& first = answer_->refusals.front();
    qsizetype further = -1;
    for (const Refusal& refusal : answer_->refusals)
        further += concerned(page, refusal).size();
    QString reason = concerned(page, first).value(0) + QStringLiteral(": ") + reasonWord(first.reason);
    if (further > 0) reason += QStringLiteral(" (+%1)").arg(further);
    if (answer_->written > 0) reason += QStringLiteral(". ") + written();
    return reason;
}

void ConfirmAnswers::report(ControlHost& page)
{
    for (const Refusal& refusal : answer_->refusals) {
        QString line = concerned(page, refusal).join(QStringLiteral(", ")) + QStringLiteral(": ")
            + reasonWord(refusal.reason);
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

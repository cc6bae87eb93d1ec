// How the answer to a confirm is worded, for the strip and for the list of reports.
#include "panel/runtime/confirm_answers.h"

#include "panel/form/input_caption.h"
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

} // namespace

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

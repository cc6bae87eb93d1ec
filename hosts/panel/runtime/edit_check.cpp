#include "panel/runtime/edit_check.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "panel/form/input_caption.h"
#include "panel/form/input_value.h"
#include "panel/form/vws_var.h"
#include "platform/ids.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace servopanel::panel {

namespace {

constexpr std::int16_t confirmKey = 10;

bool isInput(const ValueSource& source)
{
    return source.family != families::actualValues && source.family != families::faultText;
}

} // namespace

EditCheck::EditCheck(WatchedVariables& variables, AnswerStrip& strip, PanelWords words,
    std::function<void(const QString&)> note)
    : variables_{variables}
    , strip_{strip}
    , words_{std::move(words)}
    , note_{std::move(note)}
{
}

bool EditCheck::admits(ControlHost& page, platform::ChildId id, std::string_view event, platform::Args args)
{
    if (page.className() != platform::classes::ServoMain) return true;
    if (event == "TasteClick")
        return args.empty() || basic::toInt16(args[0]) != confirmKey || mayConfirm(page);
    if (event != "MouseDown" && event != "SchalterGedrückt") return true;
    const std::optional<ValueSource> source = valueSource(id.name, id.index);
    return !source || !isInput(*source) || mayEdit(page, id, *source);
}

bool EditCheck::mayEdit(ControlHost& page, platform::ChildId id, const ValueSource& source)
{
    if (variables_.state(source) == ValueState::Fresh) {
        begin(page, id, source);
        return true;
    }
    const WatchedVariables::Read* const read = variables_.latest(source.family);
    const RefusalReason reason = !variables_.linkIsGood() ? RefusalReason::NoLink
        : read == nullptr                                 ? RefusalReason::NotReadable
                                                          : reasonOf(read->error, true);
    strip_.showRefused(words_(PanelText::NotEditable),
        inputCaption(page, id.name, id.index) + QStringLiteral(": ") + reasonWord(reason, words_));
    return false;
}

void EditCheck::begin(ControlHost& page, platform::ChildId id, const ValueSource& source)
{
    bool isBegun = false;
    page.forEach([&](std::string_view name, std::int16_t index, Child& child) {
        const std::optional<ValueSource> other = valueSource(name, index);
        isBegun = isBegun
            || (child.isChanged() && other && other->family == source.family
                && other->element == source.element);
    });
    const WatchedVariables::Read* const read = variables_.latest(source.family);
    if (isBegun || read == nullptr) return;
    Beginning beginning{read->variable, {}};
    if (showsElement(page, id.name, id.index, source, read->value))
        beginning.held = elementValue(source, read->value);
    beginnings_.insert_or_assign(Place{source.family, source.element}, std::move(beginning));
}

bool EditCheck::mayConfirm(ControlHost& page)
{
    std::vector<Field> fields;
    bool isAnyChanged = false;
    page.forEach([&](std::string_view name, std::int16_t index, Child& child) {
        const std::optional<ValueSource> source = valueSource(name, index);
        if (!source || !isInput(*source)) return;
        isAnyChanged = isAnyChanged || child.isChanged();
        // The page writes every variable as a whole, with what a touched field shows, changed or not.
        if (!child.isChanged() && child.valueState() == ValueState::Fresh) return;
        const bool isKnown = std::any_of(
            fields.begin(), fields.end(), [&](const Field& field) { return field.source == *source; });
        if (!isKnown) fields.push_back({*source, inputCaption(page, name, index), child.isChanged()});
    });
    if (!isAnyChanged) return true;
    QString first;
    int count = 0;
    for (const Field& field : fields) {
        const std::optional<Obstacle> found = obstacle(field);
        if (!found) continue;
        const QString line = field.caption + QStringLiteral(": ") + found->word;
        if (++count == 1) first = line;
        note_(line + QStringLiteral(" – ") + QString::fromStdString(found->details));
    }
    if (count == 0) return true;
    if (count > 1) first += QStringLiteral(" (+%1)").arg(count - 1);
    strip_.showRefused(words_(PanelText::NotWritten), first);
    return false;
}

std::optional<EditCheck::Obstacle> EditCheck::obstacle(const Field& field)
{
    const auto because = [&](RefusalReason reason, std::string details) -> std::optional<Obstacle> {
        // What is not to be written need not be known.
        if (!field.isChanged) return {};
        return Obstacle{reasonWord(reason, words_), std::move(details)};
    };
    const WatchedVariables::Read* const read = variables_.latest(field.source.family);
    if (read == nullptr) return because(RefusalReason::NotReadable, {});
    if (!variables_.linkIsGood()) return because(RefusalReason::NoLink, read->variable);
    std::optional<double> held;
    try {
        held = elementValue(field.source, variables_.look(read->variable));
    } catch (const basic::Error& error) {
        return because(reasonOf(error.number, true), error.description);
    }
    const auto beginning = beginnings_.find({field.source.family, field.source.element});
    if (beginning == beginnings_.end() || beginning->second.variable != read->variable) return {};
    if (beginning->second.held == held) return {};
    // Told now; whoever presses again knows it.
    beginning->second.held = held;
    QString word = reasonWord(RefusalReason::ChangedMeanwhile, words_);
    if (held) word += QStringLiteral(" (") + valueText(basic::Variant{*held}) + u')';
    return Obstacle{word, read->variable};
}

} // namespace servopanel::panel

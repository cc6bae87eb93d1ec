#include "panel/runtime/edit_check.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "panel/form/definition_mode.h"
#include "panel/form/input_caption.h"
#include "panel/form/input_value.h"
#include "panel/form/vws_var.h"
#include "platform/ids.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace servopanel::panel {

namespace {

constexpr std::int16_t confirmKey = 10;
constexpr int readingMilliseconds = 1000; // until what the strip says can have been read

bool isSame(std::optional<double> one, std::optional<double> other)
{
    const bool isNoNumber = one && other && std::isnan(*one) && std::isnan(*other);
    return isNoNumber || one == other;
}

} // namespace

EditCheck::EditCheck(WatchedVariables& variables, AnswerStrip& strip, PanelWords words,
    std::function<void(const QString&)> note)
    : variables_{variables}
    , strip_{strip}
    , words_{std::move(words)}
    , note_{std::move(note)}
{
    variables_.setWriteCheck([this](std::string_view variable, const basic::Variant& value) {
        return isUnchanged(variable, value);
    });
}

bool EditCheck::admits(ControlHost& page, platform::ChildId id, std::string_view event, platform::Args args)
{
    if (page.className() != platform::classes::ServoMain) return true;
    if (event == "TasteClick")
        return args.empty() || basic::toInt16(args[0]) != confirmKey || mayConfirm(page);
    if (event != "MouseDown" && event != "SchalterGedrückt") return true;
    const std::optional<ValueSource> source = valueSource(id.name, id.index);
    // Limits and levels are the panel's own.
    return !source || !isInput(*source) || changesDefinitions(page) || mayEdit(page, id, *source);
}

void EditCheck::eventEnds(bool isOver)
{
    if (!isOver) return;
    beginnings_.clear();
    told_.reset();
}

bool EditCheck::mayEdit(ControlHost& page, platform::ChildId id, const ValueSource& source)
{
    const bool isGood = variables_.state(source) == ValueState::Fresh;
    if (isGood && !isViewing_) {
        begin(page, id, source);
        return true;
    }
    const WatchedVariables::Read* const read = variables_.latest(source.family);
    const RefusalReason reason = !variables_.linkIsGood() ? RefusalReason::NoLink
        : isGood                                          ? RefusalReason::ReadOnly
        : read == nullptr                                 ? RefusalReason::NotReadable
        : read->problem.empty()                           ? RefusalReason::Old
                                                          : reasonOf(read->error, true);
    strip_.showRefused(words_(PanelText::NotEditable),
        inputCaption(page, id.name, id.index) + QStringLiteral(": ") + reasonWord(reason, words_));
    return false;
}

// An edit goes on until nothing is changed any more, however often its field is touched.
void EditCheck::begin(ControlHost& page, platform::ChildId id, const ValueSource& source)
{
    const WatchedVariables::Read* const read = variables_.latest(source.family);
    if (read == nullptr) return;
    const Place place{source.family, source.element};
    const auto begun = beginnings_.find(place);
    if (begun != beginnings_.end() && begun->second.variable == read->variable) return;
    Beginning beginning{read->variable, {}};
    const std::optional<double> held = elementValue(source, read->value);
    const std::optional<double> shown = inputValue(page, id.name, id.index);
    if (held && shown && isSameValue(*shown, *held, {})) beginning.held = held;
    beginnings_.insert_or_assign(place, std::move(beginning));
}

// Those that were changed or touched: the page writes every variable as a whole, with what a touched field shows.
std::vector<EditCheck::Field> EditCheck::fieldsOf(ControlHost& page) const
{
    std::vector<Field> fields;
    page.forEach([&](std::string_view name, std::int16_t index, Child& child) {
        const std::optional<ValueSource> source = valueSource(name, index);
        if (!source || !isInput(*source)) return;
        if (!child.isChanged() && beginnings_.count({source->family, source->element}) == 0) return;
        const auto known = std::find_if(
            fields.begin(), fields.end(), [&](const Field& field) { return field.source == *source; });
        if (known == fields.end())
            fields.push_back({*source, inputCaption(page, name, index), child.isChanged()});
        else
            known->isChanged = known->isChanged || child.isChanged();
    });
    return fields;
}

bool EditCheck::mayConfirm(ControlHost& page)
{
    const std::vector<Field> fields = fieldsOf(page);
    const bool isAnyChanged =
        std::any_of(fields.begin(), fields.end(), [](const Field& field) { return field.isChanged; });
    if (!isAnyChanged) return true;
    QString first;
    int count = 0;
    for (const Field& field : fields) {
        const std::optional<Obstacle> found = obstacle(field);
        if (!found) continue;
        const QString line = field.caption + QStringLiteral(": ") + found->word;
        if (++count == 1) {
            first = line;
            tell({field.source.family, field.source.element}, *found);
        }
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
        return Obstacle{reasonWord(reason, words_), std::move(details), {}};
    };
    const WatchedVariables::Read* const read = variables_.latest(field.source.family);
    if (read == nullptr) return because(RefusalReason::NotReadable, {});
    if (!variables_.linkIsGood()) return because(RefusalReason::NoLink, read->variable);
    Beginning now{read->variable, {}};
    try {
        now.held = elementValue(field.source, variables_.look(read->variable));
    } catch (const basic::Error& error) {
        return because(reasonOf(error.number, true), error.description);
    }
    const Place place{field.source.family, field.source.element};
    const auto beginning = beginnings_.find(place);
    if (beginning == beginnings_.end() || beginning->second.variable != read->variable) return {};
    if (isSame(beginning->second.held, now.held)) return {};
    if (isTold(place, now) && told_->since.elapsed() >= readingMilliseconds) {
        beginning->second = now;
        return {};
    }
    QString word = reasonWord(RefusalReason::ChangedMeanwhile, words_);
    if (now.held) word += QStringLiteral(" (") + valueText(basic::Variant{*now.held}) + u')';
    return Obstacle{word, read->variable, now};
}

bool EditCheck::isTold(const Place& place, const Beginning& now) const
{
    return told_ && told_->place == place && told_->now.variable == now.variable
        && isSame(told_->now.held, now.held);
}

void EditCheck::tell(const Place& place, const Obstacle& obstacle)
{
    if (!obstacle.now) {
        told_.reset();
    } else if (!isTold(place, *obstacle.now)) {
        told_ = Told{place, *obstacle.now, {}};
        told_->since.start();
    }
}

bool EditCheck::isUnchanged(std::string_view variable, const basic::Variant& value) const
{
    return std::all_of(beginnings_.begin(), beginnings_.end(), [&](const auto& each) {
        const auto& [place, beginning] = each;
        return beginning.variable != variable
            || isSame(beginning.held, elementValue({place.first, place.second}, value));
    });
}

} // namespace servopanel::panel

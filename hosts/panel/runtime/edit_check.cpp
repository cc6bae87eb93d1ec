#include "panel/runtime/edit_check.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "panel/form/definition_mode.h"
#include "panel/form/input_caption.h"
#include "panel/form/input_value.h"
#include "panel/form/schalter.h"
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

// Nobody may turn over what he cannot see. A number that is not seen is entered anew.
bool isUnseenSwitch(ControlHost& page, platform::ChildId id)
{
    const auto* const lever = dynamic_cast<const SchalterChild*>(page.find(id.name, id.index));
    return lever != nullptr && !lever->isSeen();
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
    if (page.className() != platform::classes::ServoMain || isRepeating_) return true;
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
    knownUnreadable_.clear();
}

void EditCheck::confirmEnds(const std::vector<ValueSource>& waiting)
{
    std::erase_if(beginnings_, [&](const auto& each) {
        const ValueSource source{each.first.first, each.first.second};
        return std::find(waiting.begin(), waiting.end(), source) == waiting.end();
    });
    // What the panel itself has written is no change by somebody else.
    for (const WatchedVariables::Write& write : variables_.writes()) {
        const bool isDone =
            write.problem.empty() || reasonOf(write.error, false) == RefusalReason::NoAnswerButWritten;
        for (auto& [place, beginning] : beginnings_)
            if (isDone && beginning.variable == write.variable)
                beginning.held = elementValue({place.first, place.second}, write.value);
    }
    told_.reset();
    knownUnreadable_.clear();
}

bool EditCheck::mayEdit(ControlHost& page, platform::ChildId id, const ValueSource& source)
{
    if (isLocked_) return true;
    const bool isRead = variables_.state(source) == ValueState::Fresh;
    const bool isGood = isRead && !isUnseenSwitch(page, id);
    if (isGood && !isViewing_) {
        begin(page, id, source);
        return true;
    }
    const WatchedVariables::Read* const read = variables_.latest(source.family);
    const RefusalReason reason = !variables_.linkIsGood() ? RefusalReason::NoLink
        : isGood                                          ? RefusalReason::ReadOnly
        : read == nullptr || isRead                       ? RefusalReason::NotReadable
        : read->problem.empty()                           ? RefusalReason::Old
                                                          : reasonOf(read->error, true);
    strip_.showLocked(words_(PanelText::NotEditable),
        inputCaption(page, id.name, id.index) + QStringLiteral(": ") + reasonWord(reason, words_));
    return false;
}

bool EditCheck::tellLocked(ControlHost& page, Child& touched)
{
    QString caption;
    page.forEach([&](std::string_view name, std::int16_t index, Child& child) {
        const std::optional<ValueSource> source = valueSource(name, index);
        if (&child == &touched && source && isInput(*source)) caption = inputCaption(page, name, index);
    });
    if (caption.isEmpty()) return false;
    strip_.showLocked(words_(PanelText::NotEditable),
        caption + QStringLiteral(": ") + reasonWord(RefusalReason::LevelTooLow, words_));
    return true;
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
    struct Found {
        const Field* field;
        Obstacle obstacle;
    };
    std::vector<Found> found;
    bool isAnyReadable = false; // of the changed ones
    for (const Field& field : fields) {
        std::optional<Obstacle> each = obstacle(field);
        isAnyReadable = isAnyReadable || (field.isChanged && (!each || each->unreadable.empty()));
        if (each) found.push_back({&field, std::move(*each)});
    }
    // Where nothing is left to be written there is nothing to confirm without the rest.
    if (isAnyReadable)
        std::erase_if(
            found, [&](const Found& each) { return knownUnreadable_.count(each.obstacle.unreadable) > 0; });
    if (found.empty()) return true;
    const auto line = [](const Found& each) {
        return each.field->caption + QStringLiteral(": ") + each.obstacle.word;
    };
    for (const Found& each : found)
        note_(line(each) + QStringLiteral(" – ") + QString::fromStdString(each.obstacle.details));
    const Found& first = found.front();
    tell({first.field->source.family, first.field->source.element}, first.obstacle);
    QString reason = line(first);
    if (found.size() > 1) reason += QStringLiteral(" (+%1)").arg(found.size() - 1);
    strip_.showRefused(words_(PanelText::NotWritten), reason);
    return false;
}

std::optional<EditCheck::Obstacle> EditCheck::obstacle(const Field& field)
{
    const WatchedVariables::Read* const read = variables_.latest(field.source.family);
    if (read == nullptr) return unreadable(field, {}, RefusalReason::NotReadable, {});
    if (!variables_.linkIsGood()) return unreadable(field, {}, RefusalReason::NoLink, read->variable);
    Beginning now{read->variable, {}};
    try {
        now.held = elementValue(field.source, variables_.look(read->variable));
    } catch (const basic::Error& error) {
        const RefusalReason reason = reasonOf(error.number, true);
        // Without a connection there is nothing that could be confirmed.
        const bool isAlone = reason != RefusalReason::NoLink;
        return unreadable(field, isAlone ? read->variable : std::string{}, reason, error.description);
    }
    knownUnreadable_.erase(read->variable);
    const Place place{field.source.family, field.source.element};
    const auto beginning = beginnings_.find(place);
    if (beginning == beginnings_.end() || beginning->second.variable != read->variable) return {};
    if (isSame(beginning->second.held, now.held)) return {};
    if (isKnown(place, now)) {
        beginning->second = now;
        return {};
    }
    QString word = reasonWord(RefusalReason::ChangedMeanwhile, words_);
    if (now.held) word += QStringLiteral(" (") + valueText(basic::Variant{*now.held}) + u')';
    return Obstacle{word, read->variable, now, {}};
}

// variable: empty when not it alone is unreadable.
std::optional<EditCheck::Obstacle> EditCheck::unreadable(
    const Field& field, const std::string& variable, RefusalReason reason, const std::string& details)
{
    // What is not to be written need not be known.
    if (!field.isChanged) return {};
    if (!variable.empty() && isKnown({}, {variable, {}})) knownUnreadable_.insert(variable);
    return Obstacle{reasonWord(reason, words_), details, {}, variable};
}

bool EditCheck::isTold(const std::optional<Place>& place, const Beginning& now) const
{
    return told_ && told_->place == place && told_->now.variable == now.variable
        && isSame(told_->now.held, now.held);
}

bool EditCheck::isKnown(const std::optional<Place>& place, const Beginning& now) const
{
    return isTold(place, now) && told_->since.elapsed() >= readingMilliseconds;
}

void EditCheck::tell(const Place& place, const Obstacle& obstacle)
{
    const bool isUnreadable = !obstacle.unreadable.empty();
    if (!obstacle.now && !isUnreadable) {
        told_.reset();
        return;
    }
    const std::optional<Place> of = isUnreadable ? std::nullopt : std::optional{place};
    const Beginning now = isUnreadable ? Beginning{obstacle.unreadable, {}} : *obstacle.now;
    if (isTold(of, now)) return;
    told_ = Told{of, now, {}};
    told_->since.start();
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

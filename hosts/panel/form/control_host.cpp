#include "panel/form/control_host.h"

#include "basic/conversions.h"
#include "panel/form/caption_lines.h"
#include "panel/form/input_value.h"
#include "panel/form/menu_captions.h"
#include "panel/form/replay_command.h"
#include "panel/form/row_touch.h"
#include "panel/form/schalter.h"
#include "panel/form/text_child.h"
#include "panel/form/vws_var.h"
#include "panel/look/colours.h"
#include "panel/look/twips.h"

namespace servopanel::panel {

using basic::Variant;
using platform::Args;
using platform::ChildId;
using platform::Member;

namespace {

constexpr std::int32_t noSuchElement = 340;

[[noreturn]] void raiseNoSuch(ChildId id, bool isArray)
{
    const std::string name{id.name};
    if (!isArray) basic::raise(basic::ErrorNumber::ObjectNotSet, "There is no control '" + name + "'");
    throw basic::Error{noSuchElement, {},
        "Control array element " + name + "(" + basic::decimal(std::int32_t{id.index}) + ") doesn't exist"};
}

Variant variantOf(const std::variant<bool, std::int16_t, std::int32_t, float, std::string_view>& value)
{
    return std::visit([](const auto& each) { return Variant{each}; }, value);
}

} // namespace

ControlHost::ControlHost(std::string className, QWidget* parent, FormSurroundings& surroundings)
    : PictureChild{std::move(className), parent, surroundings.services}
    , surroundings_{surroundings}
{
    canvas().setTouchHandler(touchEvents([this](std::string_view event, std::initializer_list<Variant> args) {
        deliver({}, event, std::vector<Variant>{args});
    }));
    made_ = surroundings_.make(this->className(), platform::ControlPlatform{*this, *this, *this});
    if (!made_.control) return;
    makeChildren();
    const EventGate::Entry entry{surroundings_.gate};
    made_.control->initialize();
}

ControlHost::~ControlHost()
{
    if (!ended_) terminate();
}

void ControlHost::show()
{
    if (ended_ || !made_.control) return;
    const EventGate::Entry entry{surroundings_.gate};
    made_.control->show();
}

void ControlHost::terminate()
{
    if (ended_) return;
    // The controls inside end before the one that holds them.
    for (const auto& [key, child] : children_)
        if (auto* host = dynamic_cast<ControlHost*>(child.get())) host->terminate();
    if (made_.control) {
        const EventGate::Entry entry{surroundings_.gate};
        made_.control->terminate();
    }
    ended_ = true;
    for (const auto& [key, child] : children_)
        child->end();
    end();
}

Variant ControlHost::get(const Member& member, Args args)
{
    try {
        return PictureChild::get(member, args);
    } catch (const basic::Error& error) {
        const bool isOwn = error.number == static_cast<std::int32_t>(basic::ErrorNumber::NoSuchMember);
        if (!isOwn || !made_.control) throw;
    }
    const EventGate::Entry entry{surroundings_.gate};
    return made_.control->get(member);
}

void ControlHost::put(const Member& member, Args args, const Variant& value)
{
    try {
        PictureChild::put(member, args, value);
        return;
    } catch (const basic::Error& error) {
        const bool isOwn = error.number == static_cast<std::int32_t>(basic::ErrorNumber::NoSuchMember);
        if (!isOwn || !made_.control) throw;
    }
    {
        const EventGate::Entry entry{surroundings_.gate};
        made_.control->put(member, value);
    }
    procedureEnded();
}

// The library has placed and named its controls; what it could not know is how high letters are.
void ControlHost::procedureEnded()
{
    if (ended_) return;
    separateCaptionLines(*this);
    keepCaptionsClearOfScrollBar(*this);
}

Child* ControlHost::find(std::string_view name, std::int16_t index)
{
    const auto found = children_.find({std::string{name}, index});
    return found == children_.end() ? nullptr : found->second.get();
}

void ControlHost::forEach(const std::function<void(std::string_view, std::int16_t, Child&)>& visit)
{
    for (const auto& [key, child] : children_)
        visit(key.first, key.second, *child);
}

void ControlHost::languageChanged()
{
    for (const auto& [key, child] : children_)
        child->languageChanged();
}

bool ControlHost::deliver(ChildId id, std::string_view event, Args args)
{
    if (ended_ || !made_.control || !mayEnter(event)) return false;
    if (deliverToRow(id, event, args)) return true;
    if (!services().admits(*this, id, event, args)) return true;
    if (const std::optional<std::string> command = replayCommand(className(), id, event, args))
        services().operation(*command);
    if (event == "TasteClick") displaysStartAnew();
    Child* const outer = std::exchange(touched_, find(id.name, id.index));
    services().eventBegins(*this, event, args);
    bool isHandled = false;
    {
        using Kind = EventGate::Entry::Kind;
        const EventGate::Entry entry{surroundings_.gate, event == "Timer" ? Kind::Refresh : Kind::Action};
        isHandled = made_.control->deliver(id, event, args);
    }
    touched_ = outer;
    // The timer brings values only.
    if (event != "Timer") procedureEnded();
    services().eventEnds(*this, event, args);
    return isHandled;
}

// While a procedure lets events run, the only thing that may come in is scrolling on, which the library then takes up
// itself. Everything else meant a screen that is just being left.
bool ControlHost::mayEnter(std::string_view event) const
{
    const EventGate& gate = surroundings_.gate;
    if (gate.isClosed()) return false;
    return event == "NeuePos" || event == "Timer" || (!gate.isBusy() && !gate.touchIsLate());
}

// A touch beside an input: the library sees the touch on the input that it meant.
bool ControlHost::deliverToRow(ChildId touched, std::string_view event, Args args)
{
    const bool isDown = event == "MouseDown";
    if (className() != platform::classes::ServoMain || touched.name.empty()) return false;
    if ((!isDown && event != "MouseUp") || args.size() < 4) return false;
    const QPoint at{toPixels(basic::toSingle(args[2])), toPixels(basic::toSingle(args[3]))};
    const std::optional<RowInput> input = inputInRow(*this, touched, at);
    const std::optional<Key> begun = std::exchange(switchInTouch_, std::nullopt);
    if (!input) return false;
    const ChildId meant{input->name, input->index};
    if (dynamic_cast<SchalterChild*>(find(input->name, input->index)) != nullptr) {
        // Like the switch itself, it acts when the finger is lifted.
        if (isDown) switchInTouch_ = Key{input->name, input->index};
        const auto& lever = require<SchalterChild>(input->name, input->index);
        if (!isDown && begun == Key{input->name, input->index} && lever.takesTouch())
            deliver(meant, "SchalterGedrückt", {});
        return true;
    }
    if (!isDown) return false;
    const Variant values[]{
        args[0], args[1], Variant{toTwips(input->at.x())}, Variant{toTwips(input->at.y())}};
    return deliver(meant, event, values);
}

void ControlHost::showValueStates()
{
    for (const auto& [key, child] : children_) {
        if (auto* host = dynamic_cast<ControlHost*>(child.get())) {
            host->showValueStates();
            continue;
        }
        const std::optional<ValueSource> source = valueSource(key.first, key.second);
        if (source) child->setValueState(inputState(key, *source));
    }
    // Only now: they may ask for the states of the others.
    for (const auto& [key, child] : children_)
        child->valuesShown();
}

// While an input waits to be written or was touched, the library leaves it as it is, whatever the machine says by then. So
// what an input shows is compared with what the machine was found to hold.
ValueState ControlHost::inputState(const Key& key, const ValueSource& source)
{
    const auto from = putFrom_.find(key);
    const Services::FamilyRead read = services().familyRead(source.family);
    if (!isInput(source) || read.variable.empty()) return services().valueState(source);
    if (read.value != nullptr) {
        const bool waits = find(key.first, key.second)->isChanged() && elementValue(source, *read.value);
        if (waits || showsElement(*this, key.first, key.second, source, *read.value))
            return ValueState::Fresh;
    }
    return from != putFrom_.end() && from->second == read.variable ? ValueState::Stale : ValueState::Unknown;
}

// A key may bring another page or servo onto the same displays.
void ControlHost::displaysStartAnew()
{
    for (const auto& [key, child] : children_)
        if (auto* display = dynamic_cast<VWSVarOut*>(child.get())) display->startAnew();
}

// Events of a control come from its own procedures, so they are passed on at once, whatever else is going on.
void ControlHost::raise(std::string_view event, Args args)
{
    if (!ended_ && owner_) owner_(event, args);
}

ChildRef ControlHost::require(ChildId id)
{
    if (ended_) basic::raise(basic::ErrorNumber::ObjectNotSet);
    const auto found = children_.find({std::string{id.name}, id.index});
    if (found == children_.end()) raiseNoSuch(id, id.hasIndex() && arrays_.count(id.name) > 0);
    return found->second;
}

platform::ControlRef ControlHost::child(ChildId id) { return require(id); }

void ControlHost::load(ChildId id)
{
    if (ended_) basic::raise(basic::ErrorNumber::ObjectNotSet);
    if (children_.count({std::string{id.name}, id.index}) > 0)
        basic::raise(basic::ErrorNumber::ElementAlreadyLoaded);
    const auto array = arrays_.find(id.name);
    if (array == arrays_.end() || !id.hasIndex()) raiseNoSuch(id, false);
    Elements& elements = array->second;
    const ChildRef highest = require({id.name, elements.highest});
    const ChildRef made = makeChild(elements.className, elements.parent);
    made->copyFrom(*elements.first);

    // Directly above the highest element: below whatever stands on that one.
    const QObjectList& siblings = elements.parent->children();
    const auto above = siblings.indexOf(&highest->view()) + 1;
    if (above > 0 && above < siblings.size() && siblings.at(above)->isWidgetType()
        && siblings.at(above) != &made->view())
        made->view().stackUnder(static_cast<QWidget*>(siblings.at(above)));
    adopt({std::string{id.name}, id.index}, made, elements.parent);
}

float ControlHost::textWidth(ChildId id, std::string_view text)
{
    return toTwips(require(id)->textWidth(QString::fromUtf8(text.data(), static_cast<int>(text.size()))));
}

Variant ControlHost::get(const Member& member)
{
    if (ended_) basic::raise(basic::ErrorNumber::ObjectNotSet);
    return PictureChild::get(member, {});
}

void ControlHost::put(const Member& member, const Variant& value)
{
    if (ended_) basic::raise(basic::ErrorNumber::ObjectNotSet);
    PictureChild::put(member, {}, value);
}

CanvasView& ControlHost::canvasOf(ChildId id)
{
    if (ended_) basic::raise(basic::ErrorNumber::ObjectNotSet);
    if (id.name.empty()) return canvas();
    auto* box = dynamic_cast<PictureChild*>(require(id).get());
    if (box == nullptr) basic::raise(basic::ErrorNumber::NoSuchMember);
    return box->canvas();
}

void ControlHost::line(
    ChildId target, float x1, float y1, float x2, float y2, std::int32_t colour, std::int16_t flags)
{
    CanvasView& view = canvasOf(target);
    const QPoint from{toPixels(x1), toPixels(y1)};
    const QPoint to{toPixels(x2), toPixels(y2)};
    if (flags == filledBoxFlags)
        view.canvas().box(from, to, fromLibrary(colour));
    else
        view.canvas().line(from, to, fromLibrary(colour));
    view.refresh();
}

void ControlHost::clear(ChildId target)
{
    canvasOf(target).canvas().clear();
    canvasOf(target).refresh();
}

void ControlHost::refresh(ChildId target) { canvasOf(target).refresh(); }

void ControlHost::bitBlt(
    ChildId from, ChildId to, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height)
{
    const QImage source = canvasOf(from).canvas().image();
    canvasOf(to).canvas().copy(source, {x, y}, {width, height});
    canvasOf(to).refresh();
}

void ControlHost::stretchBlt(ChildId from, ChildId to, std::int32_t fromWidth, std::int32_t fromHeight,
    std::int32_t width, std::int32_t height)
{
    const QImage source = canvasOf(from).canvas().image();
    canvasOf(to).canvas().stretch(source, {fromWidth, fromHeight}, {width, height});
    canvasOf(to).refresh();
}

void ControlHost::makeChildren()
{
    for (const platform::FormChild& row : made_.control->form()) {
        QWidget* parent = row.parent.name.empty() ? &view() : &require(row.parent)->view();
        const ChildRef made = makeChild(row.className, parent);
        adopt({std::string{row.id.name}, row.id.index}, made, parent);
        for (const platform::FirstValue& first : row.values)
            made->put(platform::named(first.property), {}, variantOf(first.value));
    }
}

void ControlHost::adopt(const Key& key, const ChildRef& child, QWidget* parent)
{
    children_[key] = child;
    if (key.second != ChildId::noIndex) {
        const auto [array, isNew] = arrays_.try_emplace(
            key.first, Elements{child, std::string{child->className()}, parent, key.second});
        if (!isNew && key.second > array->second.highest) array->second.highest = key.second;
    }
    const auto pass = [this, key](std::string_view event, Args args) {
        return deliver({key.first, key.second}, event, args);
    };
    child->setRaise(pass);
    if (const std::optional<ValueSource> source = valueSource(key.first, key.second))
        child->setValuePutHandler([this, key, family = source->family] {
            const Services::FamilyRead read = services().familyRead(family);
            putFrom_[key] = read.variable;
        });
    if (auto* host = dynamic_cast<ControlHost*>(child.get()))
        host->setOwner([this, key](std::string_view event, Args args) {
            if (!overhears_ || !overhears_(key.first, event, args)) raiseInside(key.first, event, args);
        });
}

void ControlHost::raiseInside(std::string_view control, std::string_view event, Args args)
{
    if (ended_ || !made_.control) return;
    const EventGate::Entry entry{surroundings_.gate};
    made_.control->deliver({control}, event, args);
}

} // namespace servopanel::panel

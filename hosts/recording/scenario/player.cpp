#include "recording/scenario/player.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "platform/ids.h"
#include "recording/memory/sibling_controls.h"
#include "recording/project/folder_project.h"

#include <utility>

namespace servopanel::recording {

namespace {

namespace ids = platform::ids;
using platform::ChildId;

constexpr std::string_view page = "ServoMain";
constexpr std::string_view menu = "ServoMenu";

// What an operator has typed: both points are accepted, a text that is no number is not.
std::optional<double> typedNumber(const basic::Variant& value)
{
    try {
        if (const auto* text = value.get<std::string>()) {
            std::string number = *text;
            for (char& sign : number)
                if (sign == ',') sign = '.';
            return basic::numberFromText(number);
        }
        if (value.holds<bool>()) return std::nullopt;
        return basic::toDouble(value);
    } catch (const basic::Error&) {
        return std::nullopt;
    }
}

} // namespace

void Player::play(const Step& step)
{
    try {
        perform(step);
    } catch (const Malformed& problem) {
        throw ScenarioError{step.line, problem.reason};
    }
    host_.destroyEnded();
    if (problemAtPump_) throw *std::exchange(problemAtPump_, std::nullopt);
}

void Player::perform(const Step& step)
{
    if (!step.echo.empty()) sink_.line("> " + step.echo);
    step.action(*this);
}

void Player::pump()
{
    // A problem must not pass through the library, which would take it for an error of its own.
    for (const Step& step : std::exchange(atPump_, {})) {
        try {
            perform(step);
        } catch (const Malformed& problem) {
            if (!problemAtPump_) problemAtPump_ = ScenarioError{step.line, problem.reason};
        }
    }
}

ControlInstance& Player::servo()
{
    if (host_.servo() == nullptr) throw Malformed{"there is no control; 'create' makes one"};
    return *host_.servo();
}

ControlInstance* Player::part(std::string_view className)
{
    return host_.servo() == nullptr ? nullptr : host_.servo()->inner(className);
}

ControlInstance& Player::requirePart(std::string_view className)
{
    ControlInstance* found = servo().inner(className);
    if (found == nullptr) throw Malformed{"Servo holds no " + std::string{className}};
    return *found;
}

std::shared_ptr<MemoryControl> Player::pageChild(std::string_view name, std::int16_t index)
{
    ControlInstance* owner = part(page);
    return owner == nullptr ? nullptr : owner->form().find(ChildId{name, index});
}

void Player::useProjectFolder(const std::string& folder)
{
    try {
        host_.useProject(std::make_shared<FolderProject>(folder, world().failures));
    } catch (const basic::Error& error) {
        throw Malformed{error.description};
    }
}

void Player::create()
{
    if (host_.servo() != nullptr) throw Malformed{"the control exists already"};
    host_.createServo(makeControl_);
}

void Player::show() { servo().show(); }

void Player::terminate()
{
    servo();
    host_.endServo();
}

void Player::touch(std::string_view control, std::int16_t index)
{
    const auto input = pageChild(control, index);
    if (!input || !input->isShown() || !input->isEnabled()) {
        sink_.line("refused touch");
        return;
    }
    const ChildId child{control, index};
    if (input->className() == platform::classes::Schalter) {
        requirePart(page).deliver(child, "SchalterGedrückt", {});
        return;
    }
    const basic::Variant args[]{std::int16_t{1}, std::int16_t{0}, 0.0F, 0.0F};
    requirePart(page).deliver(child, "MouseDown", args);
}

// An input of the page that lies open over it; nothing when it is closed.
std::shared_ptr<MemoryControl> Player::openInput(std::string_view name, const platform::Member& open)
{
    auto input = pageChild(name, ChildId::noIndex);
    if (!input || !basic::toBoolean(input->get(open))) return nullptr;
    return input;
}

// Reports an event of a child of the page; nothing happens when an event before it has ended the page.
void Player::reportFromPage(std::string_view control, std::string_view event)
{
    if (ControlInstance* owner = part(page)) owner->deliver(ChildId{control}, event, {});
}

void Player::acceptMask(const basic::Variant& value)
{
    const auto mask = openInput("Eingabemaske", ids::Eingabemaske::Offen);
    const basic::Variant target = mask ? mask->get(ids::Eingabemaske::Ziel) : basic::Variant{};
    const auto* object = target.get<basic::ObjectRef>();
    const auto input = object ? std::dynamic_pointer_cast<MemoryVarIn>(*object) : nullptr;
    const std::optional<double> number = typedNumber(value);
    if (!input || !number || !input->accepts(*number)) {
        sink_.line("refused mask");
        return;
    }
    const bool differs = typedNumber(input->get(ids::VWSVarIn::Wert)) != number;
    input->put(ids::VWSVarIn::Wert, value.holds<std::string>() ? basic::Variant{*number} : value);
    if (differs) reportFromPage("Eingabemaske", "EingabeAenderung");
    reportFromPage("Eingabemaske", "Eingabefertig");
}

void Player::cancelMask()
{
    if (openInput("Eingabemaske", ids::Eingabemaske::Offen))
        reportFromPage("Eingabemaske", "Eingabefertig");
    else
        sink_.line("refused mask");
}

void Player::confirmEditor(double low, double high, std::int16_t pass)
{
    const auto editor = openInput("IniEingabe", ids::IniEingabe::Offen);
    if (!editor || low > high) {
        sink_.line("refused ini");
        return;
    }
    editor->put(ids::IniEingabe::Min, low);
    editor->put(ids::IniEingabe::Max, high);
    editor->put(ids::IniEingabe::Pass, pass);
    reportFromPage("IniEingabe", "EingabeFertig");
}

void Player::cancelEditor()
{
    // Leaving the editor is a completion too, with the values that it was given.
    if (openInput("IniEingabe", ids::IniEingabe::Offen))
        reportFromPage("IniEingabe", "EingabeFertig");
    else
        sink_.line("refused ini");
}

void Player::key(std::string_view owner, std::int16_t number, bool evenWhenOff)
{
    ControlInstance* control = part(owner);
    const auto child = control ? control->form().find(ChildId{"Fußzeile"}) : nullptr;
    const auto footer = std::dynamic_pointer_cast<MemoryFooter>(child);
    const bool isOn = footer && (evenWhenOff || footer->isKeyOn(number));
    if (!isOn) {
        sink_.line("refused key");
        return;
    }
    const basic::Variant args[]{number};
    control->deliver(ChildId{"Fußzeile"}, "TasteClick", args);
}

void Player::scroll(std::string_view owner, std::int16_t position)
{
    ControlInstance& control = requirePart(owner);
    if (const auto bar = control.form().find(ChildId{"ScrollBar"}))
        bar->put(ids::ScrollBar::Position, position);
    const basic::Variant args[]{position};
    control.deliver(ChildId{"ScrollBar"}, "NeuePos", args);
}

void Player::pointer(std::string_view control, std::int16_t index, std::string_view event, float x, float y)
{
    constexpr std::int16_t leftButton = 1;
    constexpr std::int16_t noShift = 0;
    const basic::Variant args[]{leftButton, noShift, x, y};
    requirePart(menu).deliver(ChildId{control, index}, event, args);
}

void Player::timer()
{
    const auto timer = pageChild("Timer", ChildId::noIndex);
    if (timer && timer->isEnabled())
        reportFromPage("Timer", "Timer");
    else
        sink_.line("timer off");
}

void Player::language(std::int16_t number)
{
    const basic::Variant args[]{number};
    servo().deliver(ChildId{"Header"}, "SpracheGeandert", args);
}

void Player::pokeModified(std::int16_t number)
{
    requirePart(page).hosted().put(platform::named("poke.modified"), number);
}

} // namespace servopanel::recording

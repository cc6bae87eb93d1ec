// What is known of the machine's values, and what an operator's events come to.
#include "basic/conversions.h"
#include "panel/form/fusszeile.h"
#include "panel/form/ini_eingabe.h"
#include "panel/form/schalter.h"
#include "panel/runtime/broker_connection.h"
#include "panel/runtime/panel.h"
#include "platform/ids.h"

namespace servopanel::panel {

using basic::Variant;

namespace {

constexpr int confirmKey = 10;
constexpr int discardKey = 11;

// With no change waiting the keys mean something else, and no switch waits either.
bool endsEdit(platform::Args args)
{
    const int key = args.empty() ? 0 : basic::toInt16(args[0]);
    return key == confirmKey || key == discardKey;
}

bool hasOpenMask(ControlHost& page)
{
    auto* mask = dynamic_cast<EingabemaskeChild*>(page.find("Eingabemaske"));
    auto* editor = dynamic_cast<IniEingabeChild*>(page.find("IniEingabe"));
    return (mask != nullptr && mask->isOpen()) || (editor != nullptr && editor->isOpen());
}

// A switch is told the end of an edit by its new state alone, which does not come while the machine is silent.
void settleSwitches(ControlHost& form)
{
    form.forEach([](std::string_view, std::int16_t, Child& child) {
        if (auto* lever = dynamic_cast<SchalterChild*>(&child)) lever->settle();
    });
}

} // namespace

void Panel::setLink(const Link& link)
{
    // The reason tells for how long as well, and is no news each time.
    const bool isNews = link_.good != link.good;
    link_ = link;
    watched_->setLink(link.good);
    if (!isNews) return;
    if (!link_.good) note(link_.reason);
    showValueStates();
}

ValueState Panel::valueState(const ValueSource& source) { return watched_->state(source); }

Services::FamilyRead Panel::familyRead(std::string_view family)
{
    const WatchedVariables::Read* const read = watched_->latest(family);
    if (read == nullptr) return {};
    return {read->variable, watched_->isOfNow(*read) ? &read->value : nullptr};
}

void Panel::showValueStates()
{
    if (servo_) servo_->showValueStates();
    trends_.showMarks();
    showConfirmKey();
}

// It confirms nothing that could not be written, and shows so before anybody relies on it.
void Panel::showConfirmKey()
{
    ControlHost* const part = shownPart();
    if (part == nullptr) return;
    auto* const footer = dynamic_cast<FußzeileChild*>(part->find("Fußzeile"));
    if (footer == nullptr || footer->viewOrNull() == nullptr) return;
    const bool isViewing = settings_.broker && settings_.broker->viewing;
    footer->setHeldBack(confirmKey, (isViewing || !watched_->linkIsGood()) && hasChange(*part));
}

void Panel::mirror(std::string_view variable, const Variant& value)
{
    try {
        variables_->write(variable, value, machine::Writer::Host);
    } catch (const basic::Error& error) {
        note(error.description);
    }
}

bool Panel::admits(ControlHost& form, platform::ChildId id, std::string_view event, platform::Args args)
{
    const bool admitted = edits_.admits(form, id, event, args);
    // The strip says something else now.
    if (!admitted) confirms_.forget();
    return admitted;
}

void Panel::lockedTouched(Child& input)
{
    ControlHost* const part = shownPart();
    // Without the permission for inputs the page itself has the words.
    if (part == nullptr || hasOpenMask(*part) || file_.input == 0) return;
    // Nor before the answer of a confirm can have been read.
    if (answers_.isFresh() || !edits_.tellLocked(*part, input)) return;
    confirms_.forget();
}

void Panel::eventBegins(ControlHost& form, std::string_view event, platform::Args)
{
    if (event != "TasteClick") return;
    confirms_.keyBegins(form);
    edited_.keyBegins(form);
    if (connection_) connection_->confirmBegins();
}

// What the confirm has not brought to an end waits on.
void Panel::keepWaiting(ControlHost& page)
{
    const std::vector<ValueSource> waiting = confirms_.waiting();
    edits_.confirmEnds(waiting);
    if (waiting.empty()) return;
    edits_.setRepeating(true);
    edited_.repeat(page, waiting);
    edits_.setRepeating(false);
}

void Panel::eventEnds(ControlHost& form, std::string_view event, platform::Args args)
{
    if (event == "TasteClick" && connection_) connection_->confirmEnds();
    if (event == "TasteClick" && endsEdit(args)) settleSwitches(form);
    // The library has put into the displays what it read.
    showValueStates();
    if (event == "TasteClick") {
        confirms_.keyEnds(form, link_.good);
        if (confirms_.hasAnswer()) keepWaiting(form);
    }
    // What a write has found out of the connection is shown at once. The answer tells of each write by itself.
    if (event == "TasteClick" && connection_) followConnection();
    edits_.eventEnds(!hasOpenEdit());
    // The library has brought its texts in the new language only now.
    if (event == "SpracheGeandert") retranslate();
    followMenuLanguage(event);
    ControlHost* part = shownPart();
    if (part == nullptr || part->className() != platform::classes::ServoMain) {
        answers_.dismiss();
        return;
    }
    answers_.setCovered(hasOpenMask(*part));
}

} // namespace servopanel::panel

#include "panel_monkey/by_hand.h"

#include "panel/form/ini_eingabe.h"
#include "panel/form/scroll_bar.h"
#include "panel_monkey/words.h"

namespace servopanel::monkey {

namespace {

using panel::NotThere;
using panel::Operator;

void enter(Operator& hands, const std::string& number)
{
    hands.clear();
    hands.type(number);
    hands.ok();
}

void editDefinition(Operator& hands, Words words)
{
    const std::string first = words.word();
    if (first == "cancel") {
        hands.editorCancel();
        return;
    }
    auto& editor = hands.part("ServoMain").require<panel::IniEingabeChild>("IniEingabe").editor();
    int row = 0;
    for (std::string number = first; !number.empty(); number = words.word()) {
        hands.editorRow(row++);
        hands.tap(*editor.pad().key(QStringLiteral("C")));
        hands.editorType(number.front() == '-' ? number.substr(1) + "-" : number);
    }
    hands.editorOk();
}

// What is scrolled out of its pane cannot be touched; a finger there would touch something else.
void touchInput(Operator& hands, const std::string& control, std::int16_t index)
{
    panel::Child* const input = hands.part("ServoMain").find(control, index);
    if (input == nullptr) throw NotThere{control};
    QWidget& view = input->view();
    if (!view.visibleRegion().contains(view.rect().center())) throw NotThere{control + " is out of sight"};
    hands.input(control, index);
}

void scroll(Operator& hands, std::string_view part, bool up)
{
    auto& bar = hands.part(part).require<panel::ScrollBarChild>("ScrollBar").scroll();
    hands.tap(up ? bar.upKey() : bar.downKey());
}

} // namespace

bool doneByHand(Operator& hands, const std::string& command)
{
    Words words{command};
    const std::string verb = words.word();
    if (verb == "touch") {
        const std::string control = words.word();
        touchInput(hands, control, static_cast<std::int16_t>(words.whole()));
    } else if (verb == "mask") {
        const std::string number = words.word();
        number == "cancel" ? hands.cancel() : enter(hands, number);
    } else if (verb == "ini") {
        editDefinition(hands, std::move(words));
    } else if (verb == "key" || verb == "menukey") {
        const int number = words.whole();
        static_cast<void>(hands.part(verb == "key" ? "ServoMain" : "ServoMenu"));
        hands.footerKey(number);
    } else if (verb == "language") {
        hands.language(words.whole());
    } else if (verb == "scroll" || verb == "pagescroll") {
        scroll(hands, verb == "scroll" ? "ServoMenu" : "ServoMain", words.whole() % 2 == 0);
    } else if (verb == "menudown") {
        words.word();
        hands.menuKey(words.whole());
    } else {
        return false;
    }
    return true;
}

} // namespace servopanel::monkey

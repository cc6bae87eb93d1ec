#pragma once

#include "basic/variant.h"
#include "monkey/edits.h"
#include "monkey/tally.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace servopanel::monkey {

// What the rules look at: a host in memory, or a real panel.
class Screen {
public:
    virtual ~Screen() = default;
    // What the machine holds; nullptr when there is no such variable.
    virtual const basic::Variant* variable(std::string_view name) = 0;
    // Whether there is a Servo control that was shown.
    virtual bool isShown() = 0;
    // part: "ServoMain" or "ServoMenu".
    virtual bool isSeen(std::string_view part) = 0;
    // The inputs of the page that are marked as changed by their colour.
    virtual std::set<std::int16_t> marked() = 0;
    // Whether footer key 10 of the page shows that it confirms.
    virtual bool offersConfirm() = 0;
    // Whether that key can be pressed.
    virtual bool isConfirmOn() = 0;
    // Whether the mask or the definition editor lies open over the page.
    virtual bool isInputOpen() = 0;
    // Whether the mask began with a value that may not be the machine's, so that every number entered there is a change.
    virtual bool takesEveryNumber() = 0;
};

// What holds after every command, whatever the operator and the machine did before:
//
//   - The parameters of a servo are written by a confirm alone, those of the servo that is shown, and with nothing but what
//     the operator entered; everything that was entered is written, unless the machine cannot be read or written.
//   - Nothing else is written but the few variables by which panel and machine tell each other where they are.
//   - What the machine holds changes by a write alone. What cannot be read or written is reported at once.
//   - A confirm writes each family once, and after that it tells the machine, once.
//   - A touch that is not refused does something. Keys 5 and 6 lead to the servos beside the one that is shown.
//   - Only the page or the menu is to be seen. Just the inputs with a number of the operator's are marked, and a
//     confirm is offered while something waits for it.
//
// Whether changes wait, the page tells by its footer and its confirm key alone; both are held against what was entered.
class Rules {
public:
    explicit Rules(Screen& screen);

    // Before a command is played.
    void before();
    // After it, with its trace, in which each operation stands before what it causes: what is broken, in words.
    std::optional<std::string> broken(std::string_view trace);

    const Edits& edits() const { return edits_; }
    const Tally& tally() const { return tally_; }
    Tally& tally() { return tally_; }

private:
    std::optional<std::string> brokenBlock(const TraceBlock& block, bool isOperators);
    std::optional<std::string> brokenWrite(const Access& write, const TraceBlock& block);
    std::optional<std::string> brokenParameters(const Access& write, const ServoName& name);
    std::optional<std::string> brokenElements(
        const Access& write, const Family& family, const Elements& is, const Elements& was) const;
    std::optional<std::string> brokenFlag(const Access& write) const;
    std::optional<std::string> brokenOrder(const Access& write);
    std::optional<std::string> brokenPlace(const Access& write, const TraceBlock& block);
    std::optional<std::string> unwritten(const TraceBlock& block);
    std::optional<std::string> brokenServo(const TraceBlock& block) const;
    std::optional<std::string> unanswered(const TraceBlock& block) const;
    std::optional<std::string> changedAlone(std::string_view trace) const;
    std::optional<std::string> brokenScreen();
    std::optional<std::string> brokenMarks();
    void count(const TraceBlock& block);

    Screen& screen_;
    Edits edits_;
    Tally tally_;
    std::map<std::string, basic::Variant, std::less<>> held_; // by the machine before the command
    std::set<std::int16_t> confirmed_; // fields that the confirm of this block is about
    std::set<std::string, std::less<>> written_; // by this confirm, also where the machine did not take it
    std::optional<int> place_; // of the servo that is shown, as the panel tells the machine
    bool wasInputOpen_ = false; // before the command
    bool takesEveryNumber_ = false;
};

} // namespace servopanel::monkey

#pragma once

#include "basic/variant.h"

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
    // Whether an input of the page is marked as changed.
    virtual bool isAnyMarked() = 0;
    virtual bool offersConfirm() = 0;
};

// What holds after every command, whatever the operator and the machine did before. An element is "FAMILY NUMBER", as
// "_servo_para_ 0"; the bits of the switch word count as its elements.
class Rules {
public:
    explicit Rules(Screen& screen)
        : screen_{screen}
    {
    }

    // Before a command is played.
    void before();
    // After it, with its trace, in which each operation stands before what it causes: what is broken, in words.
    std::optional<std::string> broken(const std::string& trace);

private:
    void ends(const std::string& operation);
    std::optional<std::string> brokenWrite(std::string_view name, const std::string& operation);
    std::optional<std::string> brokenScreen();

    Screen& screen_;
    std::map<std::string, basic::Variant, std::less<>> held_; // by the machine before the command
    std::set<std::string> touched_; // elements, since the values were last read or written as a whole
};

// Whether a variable holds parameters of a servo, or says that they were changed: it is written by a confirm alone.
bool isWrittenByConfirm(std::string_view name);

} // namespace servopanel::monkey

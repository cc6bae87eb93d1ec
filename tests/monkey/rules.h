#pragma once

#include "basic/variant.h"
#include "recording/replay.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace servopanel::monkey {

// What holds after every command, whatever the operator and the machine did before. An element is "FAMILY NUMBER", as
// "_servo_para_ 0"; the bits of the switch word count as its elements.
class Rules {
public:
    explicit Rules(recording::Replay& replay)
        : replay_{replay}
    {
    }

    bool isShown() const { return shown_; }
    // Before a command is played.
    void before();
    // After it, with its trace: what is broken, in words.
    std::optional<std::string> broken(const std::string& command, const std::string& trace);

private:
    std::optional<std::string> brokenWrite(std::string_view name, const std::string& command);
    std::optional<std::string> brokenScreen();
    bool isSeen(std::string_view part) const;
    bool isAnyMarked() const;

    recording::Replay& replay_;
    std::map<std::string, basic::Variant, std::less<>> held_; // by the machine before the command
    std::set<std::string> touched_; // elements, since the values were last read or written as a whole
    bool shown_ = false; // the control was shown since it was created
};

} // namespace servopanel::monkey

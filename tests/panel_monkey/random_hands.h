#pragma once

#include "monkey/kept_scenario.h"
#include "monkey/random_operator.h"

#include <cstdint>
#include <random>
#include <string>

namespace servopanel::monkey {

// The operator without sense in front of a real panel: the commands that a scenario has as well, and what only a screen
// and its surroundings have, as comments of a scenario.
//
//   at X Y, drag X Y X2 Y2     a touch of the stage, thousandths of its size
//   press KEY                  a key of the keyboard, by its name
//   back                       from another screen
//   open                       the servo screen, when the panel shows none
//   restart N                  the panel is started anew, for a screen of N pixels
//   link good, link bad        the connection to the machine
//   lose FILE, spoil FILE, bring FILE    a file of the project goes, holds rubbish, is as it was
//   forge N, forge write, forge deaf    what a broken panel could do, for tests of the rules: footer key N of the page by
//                              nobody, a switch word past the library, a panel that takes no touch
//   probe                      whatever is open is closed, and the panel must answer a touch
class RandomHands {
public:
    explicit RandomHands(std::uint32_t seed)
        : operator_{seed, {std::string{panelOnly} + "link good", std::string{panelOnly} + "probe"}}
        , random_{seed + 1}
    {
    }

    std::string next();

private:
    unsigned upTo(unsigned most) { return static_cast<unsigned>(random_() % (most + 1)); }
    std::string place();
    std::string ofThePanel();

    RandomOperator operator_;
    std::minstd_rand random_;
};

} // namespace servopanel::monkey

#pragma once

#include "panel/tour/operator.h"

#include <QDateTime>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace servopanel::look {

// One thing that an operator can have before the eyes, and how to get there from the panel just switched on.
struct State {
    std::string name; // also of its reference pictures
    // Plays the operator up to the state, calls look there once, and may leave it afterwards.
    std::function<void(panel::Operator& hands, panel::Panel& panel, const std::function<void()>& look)> visit;
    std::int16_t level = 5; // access level
    std::int16_t machine = 1;
    bool inputAllowed = true;
    std::vector<std::string> unreadable{}; // process variables that the machine does not give
    std::vector<std::string> unwritable{}; // and those that it does not take
};

// The time on the wall for the panel that is being looked at. It stands unless a state moves it on.
QDateTime& clockOfTheWall();

// Every page and dialogue of the panel. Whoever adds one adds an entry.
const std::vector<State>& states();

} // namespace servopanel::look

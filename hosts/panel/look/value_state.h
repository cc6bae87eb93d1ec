#pragma once

namespace servopanel::panel {

// How far what a display holds is the machine's value.
enum class ValueState {
    Fresh,
    Stale, // the machine could not be asked; it is the last value that it gave
    Unknown, // nor has it given one for what is shown now: whatever the display holds belongs to something else
};

} // namespace servopanel::panel

#pragma once

#include "panel/form/control_host.h"
#include "panel/form/value_source.h"

#include <string>
#include <vector>

namespace servopanel::panel {

// What the operator has entered and not confirmed yet. A confirm ends every edit, also of what did not reach the
// machine; these edits are then made once more in the operator's stead, so that nobody has to remember and repeat them,
// and none looks as if it were the machine's value.
class WaitingEdits {
public:
    // A footer key of the page is about to act.
    void keyBegins(ControlHost& page);
    // Opens, enters and closes again what was entered of these values. No procedure of the page runs.
    void repeat(ControlHost& page, const std::vector<ValueSource>& values) const;

private:
    struct Edit {
        ValueSource source;
        std::string name;
        std::int16_t index = 0;
        double entered = 0; // in a switch 0 or 1, in a part of a drawing number that part
    };

    std::vector<Edit> edits_;
};

} // namespace servopanel::panel

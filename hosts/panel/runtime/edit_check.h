#pragma once

#include "panel/form/control_host.h"
#include "panel/runtime/refusal.h"
#include "panel/runtime/watched_variables.h"
#include "panel/widgets/answer_strip.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace servopanel::panel {

// Keeps the operator from working on numbers that are not the machine's: an input whose variable is not good is not
// edited, and a change is confirmed only while every variable that it concerns is good and holds what the edit began
// from. Otherwise the strip says why not, everything entered stays as it is, and where the machine holds another value by
// now a second press, in the knowledge of it, confirms.
class EditCheck {
public:
    // note: a line for the list of reports.
    EditCheck(WatchedVariables& variables, AnswerStrip& strip, PanelWords words,
        std::function<void(const QString& line)> note);

    // Whether an event may enter the page.
    bool admits(ControlHost& page, platform::ChildId id, std::string_view event, platform::Args args);

private:
    // What the machine held when the operator began to edit, as far as the input showed it.
    struct Beginning {
        std::string variable;
        std::optional<double> held;
    };
    using Place =
        std::pair<std::string_view, int>; // family and element; the parts of a drawing number are one

    bool mayEdit(ControlHost& page, platform::ChildId id, const ValueSource& source);
    bool mayConfirm(ControlHost& page);
    void begin(ControlHost& page, platform::ChildId id, const ValueSource& source);
    struct Field {
        ValueSource source;
        QString caption;
        bool isChanged = false; // else it was touched only, or cannot be read
    };
    // What stands in the way of a confirm.
    struct Obstacle {
        QString word;
        std::string details; // of the variable, for the list of reports
    };
    std::optional<Obstacle> obstacle(const Field& field);

    WatchedVariables& variables_;
    AnswerStrip& strip_;
    PanelWords words_;
    std::function<void(const QString&)> note_;
    std::map<Place, Beginning> beginnings_;
};

} // namespace servopanel::panel

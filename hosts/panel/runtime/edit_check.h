#pragma once

#include "panel/form/control_host.h"
#include "panel/runtime/refusal.h"
#include "panel/runtime/watched_variables.h"
#include "panel/widgets/answer_strip.h"

#include <QElapsedTimer>

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace servopanel::panel {

// Keeps the operator from working on numbers that are not the machine's: an input whose variable is not good is not
// edited, nor a switch turned that does not show how it stands, and a change is confirmed only while every variable
// that it concerns is good and the machine holds what the edit began from. Otherwise the strip says why not, and
// everything entered stays as it is. Where the machine holds another value by now, or some of what was changed cannot
// be read and therefore not be written, a further press confirms in the knowledge of it: of the one that the strip
// names, and not before it can have been read.
class EditCheck {
public:
    // note: a line for the list of reports.
    EditCheck(WatchedVariables& variables, AnswerStrip& strip, PanelWords words,
        std::function<void(const QString& line)> note);

    // A panel that only shows edits nothing.
    void setViewing() { isViewing_ = true; }
    // A panel without the permission for inputs. The page itself says so, whatever is known of the machine.
    void setLocked() { isLocked_ = true; }

    // Whether an event may enter the page.
    bool admits(ControlHost& page, platform::ChildId id, std::string_view event, platform::Args args);
    // Says that the access level is too low for an input that was touched; false when it is none.
    bool tellLocked(ControlHost& page, Child& touched);
    // A confirm is over. waiting: what is still to be written; these edits go on, and all others have ended.
    void confirmEnds(const std::vector<ValueSource>& waiting);
    // Its procedure is over. isOver: nothing is changed, and nothing is open to be changed.
    void eventEnds(bool isOver);

    // While edits of the operator are made once more in his stead, whatever is known of the machine.
    void setRepeating(bool isRepeating) { isRepeating_ = isRepeating; }

private:
    // What the machine held when the operator began to edit, as far as the input showed it.
    struct Beginning {
        std::string variable;
        std::optional<double> held;
    };
    using Place =
        std::pair<std::string_view, int>; // family and element; the parts of a drawing number are one
    struct Field {
        ValueSource source;
        QString caption;
        bool isChanged = false; // else it was touched only
    };
    // What stands in the way of a confirm.
    struct Obstacle {
        QString word;
        std::string details; // of the variable, for the list of reports
        std::optional<Beginning> now; // when the machine holds another value
        std::string unreadable; // the variable, when it alone cannot be read
    };
    // The obstacle that the strip names: another value of one field, or a variable with all its fields.
    struct Told {
        std::optional<Place> place;
        Beginning now;
        QElapsedTimer since;
    };

    bool mayEdit(ControlHost& page, platform::ChildId id, const ValueSource& source);
    bool mayConfirm(ControlHost& page);
    void begin(ControlHost& page, platform::ChildId id, const ValueSource& source);
    std::vector<Field> fieldsOf(ControlHost& page) const;
    std::optional<Obstacle> obstacle(const Field& field);
    std::optional<Obstacle> unreadable(
        const Field& field, const std::string& variable, RefusalReason reason, const std::string& details);
    bool isTold(const std::optional<Place>& place, const Beginning& now) const;
    // Whether it was told long enough ago to have been read.
    bool isKnown(const std::optional<Place>& place, const Beginning& now) const;
    void tell(const Place& place, const Obstacle& obstacle);
    // Whether a variable still holds what was found when the confirm was admitted.
    bool isUnchanged(std::string_view variable, const basic::Variant& value) const;

    WatchedVariables& variables_;
    AnswerStrip& strip_;
    PanelWords words_;
    std::function<void(const QString&)> note_;
    bool isViewing_ = false;
    bool isLocked_ = false;
    bool isRepeating_ = false;
    std::map<Place, Beginning> beginnings_;
    std::optional<Told> told_;
    std::set<std::string> knownUnreadable_; // the operator wants the rest to be written without them
};

} // namespace servopanel::panel

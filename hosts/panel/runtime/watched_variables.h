#pragma once

#include "panel/form/value_source.h"
#include "panel/look/value_state.h"
#include "platform/process_var_access.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::panel {

// The way to the process variables, for the library and for all that the panel shows of them. It passes every access of
// the library on and keeps what became of it: which values of a servo could be read at last, and what a confirmed change
// came to. The panel itself only looks.
class WatchedVariables : public platform::ProcessVarAccess {
public:
    explicit WatchedVariables(std::shared_ptr<platform::ProcessVarAccess> inner)
        : inner_{std::move(inner)}
    {
    }

    basic::Variant ReadValue(std::string_view name) override;
    void WriteValue(std::string_view name, const basic::Variant& value) override;

    // The value of a variable for the panel's own eyes: what is kept of the library's reads stays as it is. Raises
    // basic::Error when it cannot be read, and while the connection is bad, when it would be an old one.
    basic::Variant look(std::string_view name);

    // Told of everything that the library reads. value: nullptr when the variable could not be read, or only an old value
    // of it. The references end with the call.
    using Observer = std::function<void(std::string_view name, const basic::Variant* value)>;
    void setObserver(Observer observer) { observer_ = std::move(observer); }

    // The connection to the machine, as whoever holds it sees it. While it is bad, everything that is read is old, and it
    // stays so until it has been read anew over a good one.
    void setLink(bool good);
    bool linkIsGood() const { return linkIsGood_; }

    // The latest read of a variable that holds values of a servo.
    struct Read {
        std::string variable;
        basic::Variant value; // of the last good read
        std::string problem; // why it cannot be shown; empty: it can
        std::int32_t error = 0; // number of the error behind the problem
        bool isOld = false; // of the time before the connection was good again
    };
    // Of a family, whichever servo was read last: it is the one that is shown. nullptr before the first read.
    const Read* latest(std::string_view family) const;
    // Whether what was read is what the machine holds, as far as the panel can know.
    bool isOfNow(const Read& read) const { return linkIsGood_ && !read.isOld && read.problem.empty(); }
    // How far what stands in a display is the value behind it.
    ValueState state(const ValueSource& source) const;
    // The displays are new and hold nothing yet.
    void startDisplays() { shown_.clear(); }

    // Called when a value has become stale or can be shown again.
    void setChangeHandler(std::function<void()> changed) { changed_ = std::move(changed); }

    // One attempt to write a variable of a servo.
    struct Write {
        std::string variable;
        std::string_view family;
        basic::Variant before; // what was read last
        basic::Variant value;
        int changes = 0; // values that differ from what was read last
        std::string problem; // empty: written
        std::int32_t error = 0; // number of the error behind the problem
    };
    // Called when the library has written a variable, whichever it is.
    using Written = std::function<void(std::string_view name, const basic::Variant& value)>;
    void setWrittenHandler(Written written) { written_ = std::move(written); }

    // Asked before a variable of a servo is written, with what was read of it for that write; false refuses it, as changed
    // meanwhile.
    using WriteCheck = std::function<bool(std::string_view name, const basic::Variant& before)>;
    void setWriteCheck(WriteCheck check) { writeCheck_ = std::move(check); }

    // Forgets the writes so far.
    void startWrites() { writes_.clear(); }
    const std::vector<Write>& writes() const { return writes_; }

private:
    basic::Variant readAndKeep(std::string_view name);
    static std::size_t place(const ValueSource& source);
    // Whether a read gave a value for a display; place: of its element, counted from 0.
    static bool givesValue(std::string_view family, const Read& read, std::size_t place);
    void noteShown(std::string_view family, const Read& read);

    std::shared_ptr<platform::ProcessVarAccess> inner_;
    bool linkIsGood_ = true;
    Observer observer_;
    std::map<std::string, Read, std::less<>> reads_; // by variable; there are as many as the project has
    std::map<std::string_view, std::string> latest_; // variable by family
    // By family, for each element: the read that gave what its display holds; displays keep it when a later read fails.
    std::map<std::string_view, std::vector<const Read*>> shown_;
    std::vector<Write> writes_;
    Written written_;
    WriteCheck writeCheck_;
    std::function<void()> changed_;
};

} // namespace servopanel::panel

#include "display/mglobal.h"

#include "basic/statement_trap.h"

namespace servopanel::display {

namespace {

// Only remembers that something failed: the message to the operator takes the place of a report.
class Merker final : public basic::ErrorSink {
public:
    void report(const basic::Error&, std::string_view) noexcept override { fehler_ = true; }
    bool fehler() const { return fehler_; }

private:
    bool fehler_ = false;
};

} // namespace

basic::ObjectRef MGlobal::LadeBild(std::string_view name)
{
    // 1. Nothing is reported from here on.
    Merker merker;
    basic::StatementTrap trap{merker, "LadeBild"};

    // 2. Load.
    basic::ObjectRef bild;
    trap([&] { bild = umfeld_.platform.pictures.load(pathHelper(umfeld_).path(name)); });

    // 3. Tell the operator which file is missing or no picture.
    if (merker.fehler()) {
        std::string voll;
        trap([&] { voll = pathHelper(umfeld_).path(name); });
        trap([&] { umfeld_.platform.messages.show("Picture '" + voll + "' can not be loaded !"); });
    }

    // 4. Maybe no picture.
    return bild;
}

} // namespace servopanel::display

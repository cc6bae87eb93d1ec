#include "display/mglobal.h"

#include "basic/silent_sink.h"
#include "basic/statement_trap.h"

namespace servopanel::display {

basic::ObjectRef MGlobal::LadeBild(std::string_view name)
{
    // 1. Nothing is reported from here on.
    basic::SilentSink still;
    basic::StatementTrap trap{still};

    // 2. Load.
    basic::ObjectRef bild;
    trap([&] { bild = umfeld_.platform.pictures.load(pathHelper(umfeld_).path(name)); });

    // 3. Tell the operator which file is missing or no picture.
    if (still.failed()) {
        std::string voll;
        trap([&] { voll = pathHelper(umfeld_).path(name); });
        trap([&] { umfeld_.platform.messages.show("Picture '" + voll + "' can not be loaded !"); });
    }

    // 4. Maybe no picture.
    return bild;
}

} // namespace servopanel::display

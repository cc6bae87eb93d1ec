#include "display/mglobal.h"

#include "basic/statement_trap.h"

#include <optional>

namespace servopanel::display {

std::string MGlobal::HoleDateiNamen(std::string_view name)
{
    basic::StatementTrap trap{umfeld_.fehler, "HoleDateiNamen"};

    // 1. The name as it is opened.
    std::string voll;
    trap([&] { voll = pathHelper(umfeld_).path(name); });

    // 2. Say so when there is no such file. A search that fails finds nothing and says nothing.
    const std::optional<bool> gefunden = trap.decision([&] { return umfeld_.platform.files.exists(voll); });
    if (!gefunden) return {};
    if (!*gefunden) {
        trap([&] { umfeld_.platform.messages.show("File '" + voll + "' can not be loaded !"); });
        return {};
    }

    // 3. It exists.
    return voll;
}

} // namespace servopanel::display

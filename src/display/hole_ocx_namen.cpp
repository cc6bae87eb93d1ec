#include "display/mglobal.h"

#include "basic/statement_trap.h"

namespace servopanel::display {

std::string MGlobal::HoleOCXNamen()
{
    basic::StatementTrap trap{umfeld_.fehler, "HoleOCXNamen"};
    std::string name;
    trap([&] { name = umfeld_.platform.surroundings.libraryName(); });
    return name;
}

} // namespace servopanel::display

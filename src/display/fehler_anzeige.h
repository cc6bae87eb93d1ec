#pragma once

#include "basic/statement_trap.h"
#include "display/zustand.h"

namespace servopanel::display {

// Closes the error display when reports were sent to it and lets go of it in any case; the next report makes a new one.
// The count of reports goes on. Called at the end of every control, with that control's trap.
void fehlerAnzeigeSchliessen(basic::StatementTrap& trap, GemeinsamerZustand& zustand);

} // namespace servopanel::display

#pragma once

#include "display/umfeld.h"

namespace servopanel::display {

// Closes the error display when reports were sent to it and lets go of it; the next report makes a new one. The count
// of reports goes on. basic::Error when the display fails. Called at the end of every control.
void fehlerAnzeigeSchliessen(GemeinsamerZustand& zustand);

} // namespace servopanel::display

#include "display/fehler_anzeige.h"

namespace servopanel::display {

void fehlerAnzeigeSchliessen(basic::StatementTrap& trap, GemeinsamerZustand& zustand)
{
    if (zustand.FehlerAnzahl <= 0 || !zustand.FehlerAnzeige) return;
    trap([&] { zustand.FehlerAnzeige->CloseMe(); });
    trap([&] { zustand.FehlerAnzeige.reset(); });
}

} // namespace servopanel::display

#include "display/fehler_anzeige.h"

#include <memory>
#include <utility>

namespace servopanel::display {

void fehlerAnzeigeSchliessen(GemeinsamerZustand& zustand)
{
    if (zustand.FehlerAnzahl <= 0 || !zustand.FehlerAnzeige) return;
    // Let go first: a display that fails to close is not asked a second time.
    const std::shared_ptr<platform::ErrorDisplay> anzeige = std::exchange(zustand.FehlerAnzeige, nullptr);
    anzeige->CloseMe();
}

} // namespace servopanel::display

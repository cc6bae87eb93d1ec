#include "display/mglobal.h"

#include "basic/statement_trap.h"
#include "display/namen.h"

namespace servopanel::display {

void MGlobal::BildLaden(std::string_view bibliothek, std::int16_t servoNummer, std::int16_t variante)
{
    basic::StatementTrap trap{umfeld_.fehler, "BildLaden"};
    BildSpeicher& speicher = umfeld_.zustand.ladeBilder;

    // The slot comes first: for a servo that has none, no file is read.
    trap([&] {
        basic::ObjectRef& platz = speicher.bild[servoNummer];
        platz = LadeBild(servoBild(umfeld_.zustand, bibliothek, servoNummer, variante, false));
    });
    // No picture counts as loaded too, so that the operator is told about it once.
    trap([&] { speicher.geladen[servoNummer] = wahr; });
}

} // namespace servopanel::display

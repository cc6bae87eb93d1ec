#include "config/mservice.h"

#include "basic/silent_sink.h"
#include "basic/statement_trap.h"

#include <string>

namespace servopanel::config {

namespace {

// The sections, each line ended by CR LF. LEGACY: entries before the first section are lost.
std::string inhalt(basic::StatementTrap& trap, const IniSpeicher& speicher)
{
    std::string ergebnis;
    for (std::int32_t i = 1; i <= speicher.IniSektionAnzahl; ++i) {
        const IniSektion* sektion = nullptr;
        trap([&] { sektion = &speicher.IniSektionen[i]; });
        if (!sektion) break;
        ergebnis += "[" + sektion->Name + "]\r\n";
        for (std::int32_t j = sektion->ErsterEintrag; j <= sektion->LetzterEintrag; ++j) {
            trap([&] {
                const IniEintrag& eintrag = speicher.IniEintraege[j];
                ergebnis += eintrag.Name + "=" + eintrag.Wert + "\r\n";
            });
        }
    }
    return ergebnis;
}

} // namespace

void MService::CloseIni()
{
    IniSpeicher& speicher = *speicher_;

    // 1. Nothing is open.
    if (!speicher.IniGeoeffnet) return;

    // 2. and 3. Write a changed cache back; whatever fails is passed over in silence.
    if (speicher.IniGeaendert) {
        basic::SilentSink schweigen;
        basic::StatementTrap still{schweigen};
        const std::string text = inhalt(still, speicher);
        still([&] { umfeld_.platform.files.writeText(speicher.IniDateiName, text); });
    }
    speicher.IniGeoeffnet = false;
}

} // namespace servopanel::config

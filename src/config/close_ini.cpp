#include "config/mservice.h"

#include "basic/silent_sink.h"
#include "basic/statement_trap.h"

#include <vector>

namespace servopanel::config {

namespace {

// The lines of the sections. LEGACY: entries before the first section are lost.
std::vector<std::string> zeilen(basic::StatementTrap& trap, const IniSpeicher& speicher)
{
    std::vector<std::string> ergebnis;
    for (std::int32_t i = 1; i <= speicher.IniSektionAnzahl; ++i) {
        const IniSektion* sektion = nullptr;
        trap([&] { sektion = &speicher.IniSektionen[i]; });
        if (!sektion) break;
        ergebnis.push_back("[" + sektion->Name + "]");
        for (std::int32_t j = sektion->ErsterEintrag; j <= sektion->LetzterEintrag; ++j) {
            trap([&] {
                const IniEintrag& eintrag = speicher.IniEintraege[j];
                ergebnis.push_back(eintrag.Name + "=" + eintrag.Wert);
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
        basic::StatementTrap still{schweigen, "CloseIni"};
        const std::vector<std::string> inhalt = zeilen(still, speicher);
        still([&] { umfeld_.platform.files.writeText(speicher.IniDateiName, inhalt); });
    }
    speicher.IniGeoeffnet = false;
}

} // namespace servopanel::config

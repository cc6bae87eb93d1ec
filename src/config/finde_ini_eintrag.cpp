#include "config/mservice.h"

#include "basic/statement_trap.h"
#include "basic/text.h"

#include <optional>

namespace servopanel::config {

namespace {

// Position of the first record from erster to letzter whose name matches, comparing one record more than there is:
// the comparison comes before the test for the end. LEGACY: so an entry that a section lacks is found in the first
// line of the section after it, and a section in what a larger file left behind. A record beyond the array is reported
// and ends the search.
template <class Speicher>
std::optional<std::int32_t> stelle(basic::StatementTrap& trap, const Speicher& sätze, std::int32_t erster,
    std::int32_t letzter, std::string_view nameGross)
{
    std::optional<std::int32_t> gefunden;
    trap([&] {
        for (std::int32_t i = erster;; ++i) {
            if (sätze[i].NameGross == nameGross) {
                gefunden = i;
                return;
            }
            if (i > letzter) return;
        }
    });
    return gefunden;
}

} // namespace

std::string MService::FindeIniEintrag(std::string_view sektion, std::string_view eintrag, bool melden)
{
    basic::StatementTrap trap{umfeld_.fehler, "FindeIniEintrag"};
    const IniSpeicher& speicher = *speicher_;

    // 1. The section.
    const std::optional<std::int32_t> gefunden =
        stelle(trap, speicher.IniSektionen, 1, speicher.IniSektionAnzahl, basic::upperCase(sektion));

    // 2. and 3. The entry within it.
    if (gefunden) {
        const IniSektion& satz = speicher.IniSektionen[*gefunden];
        const std::optional<std::int32_t> zeile = stelle(
            trap, speicher.IniEintraege, satz.ErsterEintrag, satz.LetzterEintrag, basic::upperCase(eintrag));
        if (zeile) return speicher.IniEintraege[*zeile].Wert;
    }

    // 4. Not there.
    if (melden) {
        trap([&] {
            umfeld_.platform.messages.show("Section [" + std::string{sektion} + "] or Entry '"
                + std::string{eintrag} + "' in file '" + speicher.IniDateiName + "' not found");
        });
    }
    return {};
}

} // namespace servopanel::config

#include "config/mservice.h"

#include "basic/lines.h"
#include "basic/statement_trap.h"
#include "basic/text.h"

#include <optional>

namespace servopanel::config {

namespace {

// The part of a text before a sign that it must contain.
std::string_view vor(std::string_view text, char zeichen)
{
    const std::size_t stelle = text.find(zeichen);
    if (stelle == std::string_view::npos) basic::raise(basic::ErrorNumber::InvalidProcedureCall);
    return text.substr(0, stelle);
}

std::string_view nach(std::string_view text, char zeichen)
{
    return text.substr(vor(text, zeichen).size() + 1);
}

bool enthält(std::string_view text, char zeichen) { return text.find(zeichen) != std::string_view::npos; }

// "name=value". The count goes up even when there is no room left for the entry.
void eintragAnhängen(basic::StatementTrap& trap, IniSpeicher& speicher, std::string_view zeile)
{
    trap([&] { speicher.IniEintragAnzahl = basic::add16(speicher.IniEintragAnzahl, 1); });
    IniEintrag* eintrag = nullptr;
    trap([&] { eintrag = &speicher.IniEintraege[speicher.IniEintragAnzahl]; });
    if (eintrag) {
        trap([&] { eintrag->Name = vor(zeile, '='); });
        trap([&] { eintrag->NameGross = basic::upperCase(eintrag->Name); });
        trap([&] { eintrag->Wert = nach(zeile, '='); });
    }
    trap(
        [&] { speicher.IniSektionen[speicher.IniSektionAnzahl].LetzterEintrag = speicher.IniEintragAnzahl; });
}

// "[name]", wherever the brackets stand. LEGACY: "]name[" counts as a section too and leaves the name of the one that
// had the slot before.
void sektionAnhängen(basic::StatementTrap& trap, IniSpeicher& speicher, std::string_view zeile)
{
    trap([&] { speicher.IniSektionAnzahl = basic::add16(speicher.IniSektionAnzahl, 1); });
    IniSektion* sektion = nullptr;
    trap([&] { sektion = &speicher.IniSektionen[speicher.IniSektionAnzahl]; });
    if (!sektion) return;
    trap([&] { sektion->ErsterEintrag = basic::add16(speicher.IniEintragAnzahl, 1); });
    sektion->LetzterEintrag = 0;
    const std::string_view rest = nach(zeile, '[');
    trap([&] { sektion->Name = vor(rest, ']'); });
    trap([&] { sektion->NameGross = basic::upperCase(sektion->Name); });
}

} // namespace

bool MService::OpenIni(std::string_view name, bool auflösen)
{
    basic::StatementTrap trap{umfeld_.fehler, "OpenIni"};
    IniSpeicher& speicher = *speicher_;

    // 1. The file. Without a full path nothing is opened, least of all the file of before.
    const bool bekannt = trap.condition([&] {
        speicher.IniDateiName = auflösen ? display::pathHelper(umfeld_).path(name) : std::string{name};
        return true;
    });

    // 2. Only the counts start anew.
    speicher.IniSektionAnzahl = 0;
    speicher.IniEintragAnzahl = 0;

    // 3. LEGACY: a second file before CloseIni is not opened, and the first one is gone from the cache.
    if (speicher.IniGeoeffnet) {
        trap([&] { umfeld_.platform.files.closeText(); });
        return false;
    }

    // 4. Read it line by line. Nothing is trimmed: blanks belong to names and values.
    platform::TextFile datei;
    const bool offen = bekannt && trap.condition([&] {
        datei = umfeld_.platform.files.openText(speicher.IniDateiName);
        return true;
    });
    if (!offen) return false;
    basic::Lines zeilen{datei.text};
    while (const std::optional<std::string_view> zeile = zeilen.next()) {
        if (!enthält(*zeile, '[')) {
            if (enthält(*zeile, '=')) eintragAnhängen(trap, speicher, *zeile);
        } else if (enthält(*zeile, ']')) {
            sektionAnhängen(trap, speicher, *zeile);
        }
    }
    const bool vollständig = !datei.failure;
    trap([&] {
        if (datei.failure) throw *datei.failure;
    });

    // 5. The cache answers from now on, also with what was read before a failure; nothing needs the file any more.
    speicher.IniGeaendert = false;
    speicher.IniGeoeffnet = true;
    trap([&] { umfeld_.platform.files.closeText(); });
    return vollständig;
}

} // namespace servopanel::config

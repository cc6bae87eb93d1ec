#include "config/datenbank.h"
#include "config/mservo_modul.h"

#include "basic/statement_trap.h"
#include "basic/text.h"

#include <algorithm>

namespace servopanel::config {

namespace {

// Name and machine type of the row stay as they are. When its row is gone every statement fails for itself and nothing
// is written. DEVIATION: a column that could not be read stays too, until the operator has accepted a value for it; what
// stands in for it would wipe out what the file holds.
void zurückschreiben(basic::StatementTrap& trap, platform::RecordSet& sätze, const ParamDef& def)
{
    trap([&] { sätze.moveTo(def.Lesezeichen); });
    trap([&] { sätze.edit(); });
    if (!def.AbsMaxFehlt) trap([&] { sätze.setField("abs_max", def.AbsMax); });
    if (!def.AbsMinFehlt) trap([&] { sätze.setField("abs_min", def.AbsMin); });
    if (!def.OffsetFehlt) trap([&] { sätze.setField("offset_or_bitno", def.OffsetOderBitNr); });
    if (!def.MaxFehlt) trap([&] { sätze.setField("Max", def.Max); });
    if (!def.MinFehlt) trap([&] { sätze.setField("Min", def.Min); });
    if (!def.PassFehlt) trap([&] { sätze.setField("Pass", def.Pass); });
    trap([&] { sätze.update(); });
}

} // namespace

void MServoModul::INI_Datenbank_Schreiben(std::string_view datei, std::string_view variable)
{
    basic::StatementTrap trap{umfeld_.fehler, "INI_Datenbank_Schreiben"};

    // 1. Engine and file; without rows to write to there is nothing to do but let go of the file.
    Tabelle tabelle = öffnen(umfeld_, global_, trap, datei);
    if (!tabelle.sätze) {
        tabelle.schließen(trap);
        return;
    }

    // 2. Through all rows once, so that each one can be found again.
    durchlaufen(trap, *tabelle.sätze, [](platform::RecordSet&) {});

    // 3. The selected records.
    const std::string gesucht = basic::upperCase(variable);
    const std::int16_t gespeichert = std::min(paramDefAnzahl_, höchsteParamDefAnzahl);
    for (std::int16_t i = 1; i <= gespeichert; ++i) {
        const ParamDef& def = (*paramDefs_)[i - 1];
        if (variable == alleVariablen || basic::upperCase(def.VarName) == gesucht)
            zurückschreiben(trap, *tabelle.sätze, def);
    }

    // 4. The file.
    tabelle.schließen(trap);
}

} // namespace servopanel::config

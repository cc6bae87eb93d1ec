#include "config/datenbank.h"
#include "config/mservo_modul.h"

#include "basic/conversions.h"
#include "basic/statement_trap.h"

namespace servopanel::config {

namespace {

// Exact, with regard to case. A column without a value equals nothing.
bool gleich(const basic::Variant& spalte, std::string_view text)
{
    return spalte.type() != basic::VariantType::Null && basic::toText(spalte) == text;
}

// The current row. A column that does not convert stays empty.
ParamDef gelesen(basic::StatementTrap& trap, platform::RecordSet& sätze)
{
    ParamDef def;
    def.Pass = gesperrt;
    trap([&] { def.Lesezeichen = sätze.bookmark(); });
    def.AbsMaxFehlt =
        !trap.condition([&] { return def.AbsMax = basic::toDouble(sätze.field("abs_max")), true; });
    def.AbsMinFehlt =
        !trap.condition([&] { return def.AbsMin = basic::toDouble(sätze.field("abs_min")), true; });
    def.OffsetFehlt = !trap.condition(
        [&] { return def.OffsetOderBitNr = basic::toInt16(sätze.field("offset_or_bitno")), true; });
    def.MaxFehlt = !trap.condition([&] { return def.Max = basic::toDouble(sätze.field("Max")), true; });
    def.MinFehlt = !trap.condition([&] { return def.Min = basic::toDouble(sätze.field("Min")), true; });
    def.PassFehlt = !trap.condition([&] { return def.Pass = basic::toInt16(sätze.field("Pass")), true; });
    trap([&] { def.VarName = basic::toText(sätze.field("var_name")); });
    return def;
}

} // namespace

std::int16_t MServoModul::INI_Datenbank_Einlesen(
    std::string_view datei, std::string_view maschinenTyp, std::string_view variable)
{
    basic::StatementTrap trap{umfeld_.fehler, "INI_Datenbank_Einlesen"};
    std::int16_t anzahl = 0;

    // 1. to 3. Engine, file and rows.
    Tabelle tabelle = öffnen(umfeld_, global_, trap, datei);

    // 4. and 5. Take the rows of this machine type.
    if (tabelle.sätze) {
        durchlaufen(trap, *tabelle.sätze, [&](platform::RecordSet& sätze) {
            const bool genommen = trap.condition([&] {
                return gleich(sätze.field("machine_type"), maschinenTyp)
                    && (variable == alleVariablen || gleich(sätze.field("var_name"), variable));
            });
            if (!genommen) return;
            trap([&] { anzahl = basic::add16(anzahl, 1); });
            const ParamDef def = gelesen(trap, sätze);
            trap([&] { (*paramDefs_)[anzahl - 1] = def; });
        });
    }

    // 6. The count, which is 0 when there was no file either.
    paramDefAnzahl_ = anzahl;
    tabelle.schließen(trap);
    return paramDefAnzahl_;
}

} // namespace servopanel::config

#include "config/datenbank.h"

namespace servopanel::config {

namespace {

constexpr std::string_view abfrage = "SELECT PRESET_DEFS.* FROM PRESET_DEFS";

// A host that gives nothing is treated like one that failed.
template <class T>
std::unique_ptr<T> vorhanden(std::unique_ptr<T> objekt)
{
    if (!objekt) basic::raise(basic::ErrorNumber::ObjectNotSet);
    return objekt;
}

} // namespace

void Tabelle::schließen(basic::StatementTrap& trap)
{
    sätze.reset();
    if (datenbank) trap([&] { datenbank->close(); });
    datenbank.reset();
}

Tabelle öffnen(
    display::Umfeld& umfeld, display::MGlobal& global, basic::StatementTrap& trap, std::string_view datei)
{
    Tabelle tabelle;
    trap(
        [&] { tabelle.datenbank = vorhanden(display::dbEngine(umfeld).open(global.HoleDateiNamen(datei))); });
    if (tabelle.datenbank)
        trap([&] { tabelle.sätze = vorhanden(tabelle.datenbank->openRecordSet(abfrage)); });
    return tabelle;
}

void durchlaufen(basic::StatementTrap& trap, platform::RecordSet& sätze,
    basic::FunctionRef<void(platform::RecordSet&)> satz)
{
    while (trap.condition([&] { return !sätze.atEnd(); })) {
        satz(sätze);
        const bool weiter = trap.condition([&] {
            sätze.moveNext();
            return true;
        });
        if (!weiter) return;
    }
}

} // namespace servopanel::config

#pragma once

#include "basic/function_ref.h"
#include "basic/statement_trap.h"
#include "display/mglobal.h"
#include "platform/db_engine.h"

#include <memory>
#include <string_view>

namespace servopanel::config {

// The selector that stands for every variable; compared exactly.
inline constexpr std::string_view alleVariablen = "alle";

// The table of parameter definitions while a procedure uses it. Both are empty after one report when the file could not
// be opened; the rows alone when it has no such table.
struct Tabelle {
    std::unique_ptr<platform::Database> datenbank;
    std::unique_ptr<platform::RecordSet> sätze;

    void schließen(basic::StatementTrap& trap);
};

// Opens the table in a project-relative database file; the engine is made on first use and kept.
Tabelle öffnen(
    display::Umfeld& umfeld, display::MGlobal& global, basic::StatementTrap& trap, std::string_view datei);

// Calls satz for each row from the current one to the end. A record set that can no longer say whether there is a next
// row ends the walk.
void durchlaufen(basic::StatementTrap& trap, platform::RecordSet& sätze,
    basic::FunctionRef<void(platform::RecordSet&)> satz);

} // namespace servopanel::config

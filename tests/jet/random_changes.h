#pragma once

#include "jet/definition_table.h"
#include "jet/sample_definitions.h"

#include <random>
#include <string>
#include <vector>

namespace servopanel::jet::testing {

struct ChangedCell {
    std::size_t row = 0;
    std::string_view column;
    bool isNull = false; // now
};

// Gives random values to about half of the columns of each row, some of them none, in one change of the file.
inline std::vector<ChangedCell> changeAtRandom(SampleProject& project, std::vector<DefinitionRow>& rows)
{
    std::mt19937_64 random{42};
    std::vector<ChangedCell> changed;
    const auto chance = [&](unsigned parts) { return random() % parts == 0; };
    const auto database = project.open();
    const auto records = database->openRecordSet(SampleProject::query);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        DefinitionRow& row = rows[i];
        records->edit();
        const auto set = [&](std::string_view column, basic::Variant& value, const basic::Variant& wanted) {
            if (chance(2)) return;
            value = chance(10) ? basic::Variant{basic::Null{}} : wanted;
            records->setField(column, value);
            changed.push_back({i, column, value.holds<basic::Null>()});
        };
        const auto number = [&] { return std::uniform_real_distribution<double>{-1e9, 1e9}(random); };
        const auto integer = [&] { return static_cast<std::int16_t>(random()); };
        set("abs_max", row.absMax, number());
        set("abs_min", row.absMin, number());
        set("offset_or_bitno", row.element, integer());
        set("Max", row.max, number());
        set("Min", row.min, number());
        set("Pass", row.pass, integer());
        records->update();
        records->moveNext();
    }
    database->close();
    return changed;
}

// Rows whose names have every length up to the longest, so that those of a Jet 3 file take up to 560 bytes: positions
// in them need more than one byte.
inline std::vector<DefinitionRow> longRows()
{
    std::vector<DefinitionRow> rows = sampleRows(512);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i].machineType = std::string(i * 7 % 256, 'a');
        rows[i].variable = std::string(i < 256 ? i * 13 % 256 : 511 - i, 'b');
    }
    return rows;
}

} // namespace servopanel::jet::testing

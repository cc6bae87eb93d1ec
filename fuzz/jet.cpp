// A database of definitions: read whole, and values of its first rows changed in memory as the page changes them.
#include "basic/error.h"
#include "fuzz/fuzz.h"
#include "jet/cell_patch.h"
#include "jet/definition_table.h"
#include "jet/file_image.h"
#include "jet/servo_defs/definition_list.h"

#include <algorithm>
#include <cstddef>

namespace servopanel::fuzz {

namespace {

// Each value becomes that of the last row, which has its type.
void change(jet::FileImage& image, const jet::Table& table)
{
    constexpr std::size_t most = 3;
    for (std::size_t row = 0; row < std::min(table.rows.size(), most); ++row)
        for (const std::string_view name : jet::valueColumns)
            try {
                const std::size_t column = table.column(name);
                const basic::Variant& value = table.rows.back().cells[column].value;
                for (const jet::Patch& patch : jet::patchesFor(image, table, row, column, value))
                    image.change(patch.page, patch.at, patch.content);
            } catch (const basic::Error&) {
                // A value that cannot be changed says so; the others can.
            }
}

} // namespace

void feed(std::string_view bytes)
{
    try {
        jet::FileImage image{jet::Bytes(bytes.begin(), bytes.end())};
        const jet::Table table = jet::readDefinitions(image);
        jet::toCsv(jet::definitionsOf(table));
        change(image, table);
        // In a damaged file rows may lie upon each other: what was sound before need not be so now.
        jet::readDefinitions(image);
    } catch (const basic::Error&) {
    }
}

} // namespace servopanel::fuzz

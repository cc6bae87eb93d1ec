// Definitions as a CSV file.
#include "basic/error.h"
#include "fuzz/fuzz.h"
#include "jet/servo_defs/definition_list.h"

namespace servopanel::fuzz {

void feed(std::string_view bytes)
{
    jet::DefinitionList list;
    try {
        list = jet::fromCsv(bytes);
    } catch (const basic::Error&) {
        return;
    }
    const std::string written = jet::toCsv(list.rows);
    if (jet::toCsv(jet::fromCsv(written).rows) != written)
        broken("definitions come back as they were written");
}

} // namespace servopanel::fuzz

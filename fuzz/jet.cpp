// A database of definitions: read whole, and one value changed in memory.
#include "basic/error.h"
#include "fuzz/fuzz.h"
#include "jet/definition_table.h"
#include "jet/file_image.h"
#include "jet/servo_defs/definition_list.h"

namespace servopanel::fuzz {

void feed(std::string_view bytes)
{
    try {
        const jet::FileImage image{jet::Bytes(bytes.begin(), bytes.end())};
        const jet::Table table = jet::readDefinitions(image);
        jet::toCsv(jet::definitionsOf(table));
    } catch (const basic::Error&) {
    }
}

} // namespace servopanel::fuzz

// Language texts of a project.
#include "machine/texts.h"
#include "fuzz/fuzz.h"
#include "portable/text_decoding.h"

namespace servopanel::fuzz {

void feed(std::string_view bytes)
{
    const machine::Texts texts = machine::Texts::fromLines(portable::decodeLines(bytes), "de.txt");
    for (const auto& [key, text] : texts.all())
        if (texts.find(key) == nullptr || *texts.find(key) != text || texts.line(key) < 1)
            broken("a text is found by its key and has a line");
}

} // namespace servopanel::fuzz

// Language texts of a project, in any encoding.
#include "machine/texts.h"
#include "fuzz/fuzz.h"
#include "portable/text_decoding.h"

namespace servopanel::fuzz {

void feed(std::string_view bytes)
{
    const machine::Texts texts = machine::Texts::of(bytes, "de.txt");
    for (const auto& [key, text] : texts.all()) {
        if (texts.find(key) == nullptr || *texts.find(key) != text || texts.line(key) < 1)
            broken("a text is found by its key and has a line");
        if (!portable::isUtf8(text)) broken("a text is UTF-8");
    }
}

} // namespace servopanel::fuzz

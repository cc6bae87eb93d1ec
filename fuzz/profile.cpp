// Single look-ups by the rules of the profile functions.
#include "fuzz/fuzz.h"
#include "portable/profile_text.h"
#include "portable/text_decoding.h"

#include <string>
#include <vector>

namespace servopanel::fuzz {

void feed(std::string_view bytes)
{
    constexpr std::size_t longest = 254;
    const std::vector<std::string> lines = portable::decodeLines(bytes);
    for (const std::string& line : lines)
        if (!portable::isUtf8(line)) broken("decoded lines are UTF-8");

    // Whatever looks like a section or an entry is asked for.
    std::string section;
    int asked = 0;
    for (const std::string& line : lines) {
        if (++asked > 200) break;
        if (const std::size_t open = line.find('['); open != std::string::npos)
            section = line.substr(open + 1, line.find(']', open) - open - 1);
        const std::string entry = line.substr(0, line.find('='));
        const auto value = portable::profileLookUp(lines, section, entry);
        if (!value) continue;
        std::size_t characters = 0;
        for (const char byte : *value)
            if ((static_cast<unsigned char>(byte) & 0xC0) != 0x80) ++characters;
        if (characters > longest) broken("a value has at most 254 characters");
        if (!portable::isUtf8(*value)) broken("a value is UTF-8");
    }
}

} // namespace servopanel::fuzz

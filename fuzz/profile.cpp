// Single look-ups by the rules of the profile functions.
#include "basic/lines.h"
#include "fuzz/fuzz.h"
#include "portable/profile_text.h"
#include "portable/text_decoding.h"

#include <optional>
#include <string>
#include <string_view>

namespace servopanel::fuzz {

void feed(std::string_view bytes)
{
    constexpr std::size_t longest = 254;
    const std::string text = portable::decodedText(std::string{bytes});
    if (!portable::isUtf8(text)) broken("a decoded text is UTF-8");

    // Whatever looks like a section or an entry is asked for.
    std::string section;
    int asked = 0;
    basic::Lines lines{text};
    while (const std::optional<std::string_view> next = lines.next()) {
        const std::string_view line = *next;
        if (++asked > 200) break;
        if (const std::size_t open = line.find('['); open != std::string::npos)
            section = line.substr(open + 1, line.find(']', open) - open - 1);
        const std::string_view entry = line.substr(0, line.find('='));
        const auto value = portable::profileLookUp(text, section, entry);
        if (!value) continue;
        std::size_t characters = 0;
        for (const char byte : *value)
            if ((static_cast<unsigned char>(byte) & 0xC0) != 0x80) ++characters;
        if (characters > longest) broken("a value has at most 254 characters");
        if (!portable::isUtf8(*value)) broken("a value is UTF-8");
    }
}

} // namespace servopanel::fuzz

#include "servo_page/structure/text_aufdroeseln.h"

#include "servo_page/servo_main.h"

#include <optional>

namespace servopanel::servo_page {

namespace {

// Double-byte semicolons as a single-byte runtime delivers them: the full-width semicolon of the simplified Chinese
// code page (163, 187) and of the Japanese one (129, 71). The last is what a Unicode runtime delivers for both.
constexpr std::string_view breiteSemikolons[]{"\xC2\xA3\xC2\xBB", "\xC2\x81G", "\xEF\xBC\x9B"};

struct Trennung {
    std::size_t stelle; // bytes
    std::size_t länge;
};

std::optional<Trennung> trennung(std::string_view text)
{
    const std::size_t semikolon = text.find(';');
    if (semikolon != std::string_view::npos && semikolon > 0) return Trennung{semikolon, 1};
    for (std::string_view breit : breiteSemikolons) {
        const std::size_t stelle = text.find(breit, 1);
        if (stelle != std::string_view::npos) return Trennung{stelle, breit.size()};
    }
    return std::nullopt;
}

} // namespace

TextTeile textTeile(std::string_view text)
{
    const std::optional<Trennung> gefunden = trennung(text);
    if (!gefunden) return {text, {}};
    return {text.substr(0, gefunden->stelle), text.substr(gefunden->stelle + gefunden->länge)};
}

void ServoMain::TextAufdröseln(std::string_view text, std::string& beschriftung, std::string& einheit)
{
    basic::StatementTrap trap{fehler(), "Ma TextAufdröseln"};
    const TextTeile teile = textTeile(text);

    // 1. to 3. Caption and unit; a text without a separator is a caption alone.
    trap([&] { beschriftung = teile.Beschriftung; });
    trap([&] { einheit = teile.Einheit; });
}

} // namespace servopanel::servo_page

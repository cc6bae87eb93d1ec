#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

namespace {

// Double-byte semicolons as a single-byte runtime delivers them: the full-width semicolon of the simplified Chinese
// code page (163, 187) and of the Japanese one (129, 71). The last is what a Unicode runtime delivers for both.
constexpr std::string_view breiteSemikolons[]{"\xC2\xA3\xC2\xBB", "\xC2\x81G", "\xEF\xBC\x9B"};

struct Trennung {
    std::size_t stelle = std::string_view::npos; // bytes
    std::size_t länge = 0;
};

// A separator on the text's first place separates nothing.
Trennung trennung(std::string_view text)
{
    const std::size_t semikolon = text.find(';');
    if (semikolon != std::string_view::npos && semikolon > 0) return {semikolon, 1};
    for (std::string_view breit : breiteSemikolons) {
        const std::size_t stelle = text.find(breit, 1);
        if (stelle != std::string_view::npos) return {stelle, breit.size()};
    }
    return {};
}

} // namespace

void ServoMain::TextAufdröseln(std::string_view text, std::string& beschriftung, std::string& einheit)
{
    basic::StatementTrap trap{fehler(), "Ma TextAufdröseln"};
    const Trennung gefunden = trennung(text);

    // 1. and 2. Caption and unit.
    if (gefunden.stelle != std::string_view::npos) {
        trap([&] { beschriftung = text.substr(0, gefunden.stelle); });
        trap([&] { einheit = text.substr(gefunden.stelle + gefunden.länge); });
        return;
    }

    // 3. A caption alone.
    trap([&] { beschriftung = text; });
    trap([&] { einheit.clear(); });
}

} // namespace servopanel::servo_page

// The library's own reader of whole INI files, and its look-ups.
#include "config/mservice.h"
#include "fuzz/fuzz.h"
#include "portable/text_decoding.h"
#include "support/fakes.h"

#include <algorithm>
#include <vector>

namespace servopanel::fuzz {

void feed(std::string_view bytes)
{
    testing::Surround surround;
    config::MService service{surround.umfeld};
    const std::vector<std::string> lines = portable::decodeLines(bytes);
    surround.world().texts["P:\\a.ini"] = {portable::decodedText(std::string{bytes}), std::nullopt};
    service.OpenIni("a.ini", true);

    const config::IniSpeicher& cache = service.speicher();
    if (cache.IniEintragAnzahl < 0 || cache.IniEintragAnzahl > 10000 || cache.IniSektionAnzahl < 0
        || cache.IniSektionAnzahl > 1000)
        broken("the counts stay within their arrays");
    if (cache.IniEintragAnzahl > std::count_if(lines.begin(), lines.end(),
            [](const std::string& line) { return line.find('=') != std::string::npos; }))
        broken("an entry is a line with =");
    for (std::int16_t s = 0; s <= std::min<std::int16_t>(cache.IniSektionAnzahl, 20); ++s)
        for (std::int16_t e = 1; e <= std::min<std::int16_t>(cache.IniEintragAnzahl, 20); ++e) {
            const std::string section = cache.IniSektionen[s].Name;
            const std::string entry = cache.IniEintraege[e].Name;
            service.FindeIniEintrag(section, entry, true);
            service.InputIniBoolean(section, entry, true);
        }
    service.CloseIni();
}

} // namespace servopanel::fuzz

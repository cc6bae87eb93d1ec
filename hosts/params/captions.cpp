#include "params/captions.h"

#include "basic/conversions.h"
#include "basic/text.h"
#include "display/namen.h"
#include "servo_page/structure/text_nummern.h"

#include <string_view>

namespace servopanel::params {

namespace {

// "caption;unit", as the page splits it; the full-width semicolon of Chinese texts too.
Captions::Caption split(std::string_view text)
{
    for (const std::string_view separator : {";", "\xEF\xBC\x9B"}) {
        const std::size_t at = text.find(separator, 1);
        if (at == std::string_view::npos) continue;
        return {std::string{basic::trim(text.substr(0, at))},
            std::string{basic::trim(text.substr(at + separator.size()))}};
    }
    return {std::string{basic::trim(text)}, {}};
}

} // namespace

Captions::Caption Captions::of(const std::string& machine, const Place& place) const
{
    if (place.element < 0 || place.element >= place.of().fields) return {};
    display::GemeinsamerZustand zustand;
    zustand.MaschinenBez = machine;
    const std::int16_t text = servo_page::textNummer(
        servo_page::TextArt::Beschriftung, static_cast<std::int16_t>(place.of().firstField + place.element));
    return split(
        texts_.text(display::textSchlüssel(zustand, "Servo", basic::roundToInt16(place.servo), text)));
}

} // namespace servopanel::params

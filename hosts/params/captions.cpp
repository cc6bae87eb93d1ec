#include "params/captions.h"

#include "basic/conversions.h"
#include "basic/text.h"
#include "display/namen.h"
#include "servo_page/structure/text_aufdroeseln.h"
#include "servo_page/structure/text_nummern.h"

namespace servopanel::params {

Captions::Caption Captions::of(const std::string& machine, const Place& place) const
{
    if (place.element < 0 || place.element >= place.of().fields) return {};
    const std::int16_t number = servo_page::textNummer(
        servo_page::TextArt::Beschriftung, static_cast<std::int16_t>(place.of().firstField + place.element));
    // As the page splits it; the blanks around the parts are of no use in a list.
    const std::string text =
        texts_.text(display::textSchlüssel(machine, "Servo", basic::roundToInt16(place.servo), number));
    const servo_page::TextTeile parts = servo_page::textTeile(text);
    return {std::string{basic::trim(parts.Beschriftung)}, std::string{basic::trim(parts.Einheit)}};
}

} // namespace servopanel::params

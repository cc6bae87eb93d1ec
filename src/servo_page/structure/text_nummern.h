#pragma once

#include <cstdint>

namespace servopanel::servo_page {

enum class TextArt {
    Beschriftung, // field 1..24, 31..34, 41, 42
    Punkt, // marker point 43..46
    ParaBeschriftung, // caption 1, 2 on the servo's picture
    Überschrift, // page 0, 1, 2
};

// The number under which a servo's language texts hold the text of an item; error 5 for an item without a text.
// Captions of fields are "caption;unit" where the field has a unit.
std::int16_t textNummer(TextArt art, std::int16_t nummer);

} // namespace servopanel::servo_page

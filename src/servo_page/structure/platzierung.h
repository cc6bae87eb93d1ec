#pragma once

#include "servo_page/structure/entwurf.h"

#include <cstdint>

namespace servopanel::servo_page {

// Whether placing a child also brings its font to the panel's size; elements that are loaded take it over ready.
enum class Schrift { Behalten, Anpassen };

// What a caption is moved by and its width shortened by, in twips of this panel.
struct Korrektur {
    std::int16_t versatz = 0;
    std::int16_t breite = 0;
};

} // namespace servopanel::servo_page

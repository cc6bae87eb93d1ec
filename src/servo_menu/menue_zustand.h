#pragma once

#include "basic/arithmetic.h"

#include <cstdint>
#include <string>

namespace servopanel::servo_menu {

// The key grid in twips; unscaled, with sizes of its own for 800-pixel panels.
struct TastenRaster {
    basic::CheckedArray<float, 2> Spalte; // left edges
    basic::CheckedArray<float, 4> Zeile; // top edges
    float TastenHöhe = 0;
    float TastenBreite = 0; // left column
    float Maß3 = 0; // width of the right column's frame and hit area
    float Maß4 = 0; // distance of the caption from the key's left edge
    float Maß5 = 0; // height of the caption's strip
    float Maß6 = 0; // width of caption and source picture
    float Maß7 = 0; // height of the source picture
};

// One footer key F1 to F10 as configured for the machine.
struct MenüTaste {
    std::string Bild;
    bool Frei = false;
};

// A scroll that arrives while the page is being built is served by the running build.
struct Rollanforderung {
    std::int16_t Beschaeftigt = 0;
    std::int16_t Position = 0;
    std::int16_t Anforderungen = 0;
    std::int16_t Bedient = 0;
    bool Abbruch = false; // the running build stops before its next key
};

struct MenüZustand {
    std::int16_t BildNummer = 0;
    std::int16_t BildShow = 0;
    std::string Bibliothek;
    TastenRaster raster;
    basic::CheckedArray<MenüTaste, 10, 1> Tasten;
    Rollanforderung rollen;
    std::int16_t GedrückteTaste = 0; // 1 to 8, 0 none
    basic::CheckedArray<bool, 9> Gezeichnet; // by key, the look last drawn: True is pressed
};

} // namespace servopanel::servo_menu

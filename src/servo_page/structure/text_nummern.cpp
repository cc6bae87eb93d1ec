#include "servo_page/structure/text_nummern.h"

#include "basic/error.h"

namespace servopanel::servo_page {

namespace {

// Numbers erste..letzte have the texts from text on.
struct Bereich {
    TextArt art;
    std::int16_t erste;
    std::int16_t letzte;
    std::int16_t text;
};

constexpr Bereich bereiche[]{
    {TextArt::Beschriftung, 1, 24, 1},
    {TextArt::Beschriftung, 31, 34, 25},
    {TextArt::Beschriftung, 41, 42, 35},
    {TextArt::Punkt, 43, 46, 37},
    {TextArt::ParaBeschriftung, 1, 2, 61},
    {TextArt::Überschrift, 0, 0, 0},
    {TextArt::Überschrift, 1, 1, 30},
    {TextArt::Überschrift, 2, 2, 70},
};

} // namespace

std::int16_t textNummer(TextArt art, std::int16_t nummer)
{
    for (const Bereich& bereich : bereiche)
        if (bereich.art == art && nummer >= bereich.erste && nummer <= bereich.letzte)
            return static_cast<std::int16_t>(bereich.text + nummer - bereich.erste);
    basic::raise(basic::ErrorNumber::InvalidProcedureCall);
}

} // namespace servopanel::servo_page

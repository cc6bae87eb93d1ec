#pragma once

#include "display/farben.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace servopanel::servo_page {

// Field numbers of the page: 1..10 and 21, 22 setpoints of the left half, 11..20 and 23, 24 of the right half; 31, 32
// and 33, 34 switches; 41 and 42 drawing numbers, whose three items are 41, 43, 45 and 42, 44, 46.

inline constexpr std::int16_t letztesFeld = 42;

// Captions on the servo's picture count from 1; element 0 is only what the others are made from.
inline constexpr std::int16_t letzteParaBeschriftung = 2;

constexpr bool istSollwertLinks(std::int16_t feld)
{
    return (feld >= 1 && feld <= 10) || feld == 21 || feld == 22;
}
constexpr bool istSollwertRechts(std::int16_t feld)
{
    return (feld >= 11 && feld <= 20) || feld == 23 || feld == 24;
}
constexpr bool istSollwert(std::int16_t feld) { return istSollwertLinks(feld) || istSollwertRechts(feld); }
constexpr bool istSchalter(std::int16_t feld) { return feld >= 31 && feld <= 34; }
constexpr bool istZeichnung(std::int16_t item) { return item >= 41 && item <= 46; }
// Odd drawing items belong to the left number, even ones to the right.
constexpr bool istZeichnungLinks(std::int16_t item) { return istZeichnung(item) && item % 2 == 1; }
// The field that carries mark and definition of a drawing item.
constexpr std::int16_t zeichnungsFeld(std::int16_t item)
{
    return istZeichnungLinks(item) ? std::int16_t{41} : std::int16_t{42};
}
// The three items of the drawing number of field 41 or 42, in reading order.
constexpr std::array<std::int16_t, 3> zeichnungsItems(std::int16_t feld)
{
    return {feld, static_cast<std::int16_t>(feld + 2), static_cast<std::int16_t>(feld + 4)};
}

// The two groups of setpoints; each has its own families of variables, element 0 belongs to the first field.
struct FeldBereich {
    std::int16_t erstes;
    std::int16_t letztes;
};
inline constexpr FeldBereich ersteGruppe{1, 20};
inline constexpr FeldBereich zweiteGruppe{21, 24};

// Control arrays of the half that a field lies on.
constexpr std::string_view sollwertName(std::int16_t feld)
{
    return istSollwertLinks(feld) ? "SollwertL" : "SollwertR";
}
constexpr std::string_view schalterName(std::int16_t feld) { return feld <= 32 ? "SchalterL" : "SchalterR"; }
constexpr std::string_view zeichnungName(std::int16_t item)
{
    return istZeichnungLinks(item) ? "ZeichnungL" : "ZeichnungR";
}

// The half that a field or drawing item lies on.
constexpr bool istLinkeHälfte(std::int16_t feld)
{
    return istSollwertLinks(feld) || feld == 31 || feld == 32 || istZeichnungLinks(feld);
}
constexpr std::string_view beschriftungName(std::int16_t feld)
{
    return istLinkeHälfte(feld) ? "BeschriftungL" : "BeschriftungR";
}
constexpr std::string_view beschriftung2Name(std::int16_t feld)
{
    return istLinkeHälfte(feld) ? "BeschriftungL2" : "BeschriftungR2";
}
constexpr std::string_view einheitName(std::int16_t feld)
{
    return istLinkeHälfte(feld) ? "EinheitL" : "EinheitR";
}
constexpr std::string_view punktName(std::int16_t item)
{
    return istZeichnungLinks(item) ? "PunktL" : "PunktR";
}

// Where a field's value and definition come from: the family of process variables and the element within it.
struct Familie {
    std::string_view name;
    std::int16_t element;
};
// Nothing for the numbers that carry no parameter (25..30, 35..40).
std::optional<Familie> familieDesFelds(std::int16_t feld);

// The families of a servo's process variables.
namespace familien {
inline constexpr std::string_view Sollwert = "_servo_para_";
inline constexpr std::string_view SollwertUnten = "_servo_para_un_";
inline constexpr std::string_view SollwertOben = "_servo_para_ob_";
inline constexpr std::string_view Sollwert2 = "_servo_para2_";
inline constexpr std::string_view Sollwert2Unten = "_servo_para2_un_";
inline constexpr std::string_view Sollwert2Oben = "_servo_para2_ob_";
inline constexpr std::string_view Schalter = "_servo_schalt_";
inline constexpr std::string_view Zeichnung = "_servo_zeich_";
inline constexpr std::string_view Diagnose = "_servo_diag_";
inline constexpr std::string_view Fehlertext = "_fetext_";
inline constexpr std::string_view Geaendert = "_servoaender_";
} // namespace familien

// Colours 0xBBGGRR.
namespace farben {
using display::farben::Silber;
inline constexpr std::int32_t Grau = 0x808080; // locked
inline constexpr std::int32_t Schwarz = 0; // normal
inline constexpr std::int32_t Grün = 0x008000; // changed, not yet written
inline constexpr std::int32_t Hellgrün = 0x00FF00; // active key, drawing number part being edited
inline constexpr std::int32_t Weiß = 0xFFFFFF;
} // namespace farben

} // namespace servopanel::servo_page

#pragma once

#include "servo_page/felder.h"

#include <cstdint>

// Where everything stands on a panel of 1280 x 1024 pixels, in twips, 15 to the pixel. Form and building of the page
// share these numbers; every element has a place of its own that is scaled by itself, so that rounding never adds up.
namespace servopanel::servo_page::entwurf {

struct Rechteck {
    float links;
    float oben;
    float breite;
    float höhe;
};

inline constexpr Rechteck überschrift{105, 1635, 5700, 600};
inline constexpr Rechteck paraPic{5940, 1635, 7305, 2190};
inline constexpr Rechteck paraBeschriftung{0, 0, 600, 240}; // its place comes from the servo's layout file
inline constexpr Rechteck scrollBar{18285, 3900, 810, 9765};
inline constexpr Rechteck detailBox{105, 3900, 18990, 9765};
inline constexpr Rechteck fehlertext{105, 8400, 18750, 1200};
inline constexpr Rechteck fußzeile{0, 13740, 19200, 1620};
inline constexpr Rechteck maske{3210, 2235, 5400, 6900}; // input mask and definition editor
inline constexpr Rechteck unsichtbar{0, 0, 15, 15};

// The two halves of the parameter page: 1 left, 2 right.
constexpr Rechteck mainRahmen(std::int16_t hälfte)
{
    return {hälfte == 1 ? 105.0F : 9195.0F, 3900, 9015, 9765};
}
inline constexpr Rechteck mainBereich{0, 0, 9015, 9765};

// Rows of a half: ten setpoints, two of the second group, two switches, the drawing number; a gap between the groups.
// The first row stands low enough for the upper of two caption lines on every panel.
inline constexpr float zeilenHöhe = 630;
inline constexpr float eingabeHöhe = 540;
constexpr float zeileOben(std::int16_t item)
{
    if (item <= 20) return 45 + zeilenHöhe * static_cast<float>((item - 1) % 10);
    if (item <= 24) return 6435 + zeilenHöhe * static_cast<float>((item - 21) % 2);
    if (item <= 34) return 7785 + zeilenHöhe * static_cast<float>((item - 31) % 2);
    return 9135;
}

// Captions reach up to the input; the width correction keeps them clear of it.
constexpr Rechteck beschriftung(std::int16_t feld) { return {105, zeileOben(feld) + 120, 4395, 300}; }
constexpr Rechteck beschriftung2(std::int16_t feld) { return {105, zeileOben(feld) + 270, 4395, 300}; }
constexpr Rechteck eingabe(std::int16_t feld) { return {4545, zeileOben(feld), 2550, eingabeHöhe}; }
constexpr Rechteck einheit(std::int16_t feld) { return {7185, zeileOben(feld) + 120, 1725, 300}; }

// The three parts of a drawing number and the points in front of the second and third.
constexpr Rechteck zeichnung(std::int16_t item)
{
    if (item <= 42) return {4545, zeileOben(item), 765, eingabeHöhe};
    if (item <= 44) return {5430, zeileOben(item), 600, eingabeHöhe};
    return {6150, zeileOben(item), 945, eingabeHöhe};
}
constexpr Rechteck punkt(std::int16_t item)
{
    if (item <= 42) return {4425, zeileOben(item), 120, eingabeHöhe};
    return {item <= 44 ? 5310.0F : 6030.0F, zeileOben(item), 120, eingabeHöhe};
}

// Diagnosis pages: lines 101..110 left and 111..120 right, titles of the table 121 and 122.
constexpr bool istÜberschriftZeile(std::int16_t zeile)
{
    return zeile == 101 || zeile == 102 || zeile == 111;
}
constexpr bool istTabellenTitel(std::int16_t zeile) { return zeile == 121 || zeile == 122; }
constexpr float diagnoseZeile(std::int16_t zeile) { return 510 * static_cast<float>((zeile - 101) % 10); }
constexpr float diagnoseSpalte(std::int16_t zeile) { return zeile <= 110 || zeile == 121 ? 105.0F : 9495.0F; }
constexpr Rechteck diagnoseBeschriftung(std::int16_t zeile)
{
    if (istTabellenTitel(zeile)) return {diagnoseSpalte(zeile), 5280, 9390, 300};
    const float breite = istÜberschriftZeile(zeile) ? 9390.0F : 4845.0F;
    return {diagnoseSpalte(zeile), 120 + diagnoseZeile(zeile), breite, 300};
}
constexpr Rechteck istWert(std::int16_t zeile)
{
    return {diagnoseSpalte(zeile) + 4905, 60 + diagnoseZeile(zeile), 2400, 420};
}
constexpr Rechteck diagnoseEinheit(std::int16_t zeile)
{
    return {diagnoseSpalte(zeile) + 7395, 120 + diagnoseZeile(zeile), 1650, 300};
}

// Table of actual values 121..140: four columns of five cells, column by column, two pixels between the columns.
constexpr bool istSpaltenKopf(std::int16_t zelle)
{
    return zelle == 121 || zelle == 122 || zelle == 126 || zelle == 131 || zelle == 136;
}
constexpr Rechteck istWertTab(std::int16_t zelle)
{
    const int spalte = (zelle - 121) / 5;
    const int reihe = (zelle - 121) % 5;
    return {static_cast<float>(105 + 4695 * spalte), static_cast<float>(5640 + 510 * reihe), 4665, 480};
}

// Points.
inline constexpr std::int16_t schriftÜberschrift = 14;
inline constexpr std::int16_t schriftEingabe = 12;
inline constexpr std::int16_t schriftText = 10;

} // namespace servopanel::servo_page::entwurf

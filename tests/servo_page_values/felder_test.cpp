#include "servo_page/felder.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace servopanel::servo_page;

std::string family(std::int16_t field)
{
    const auto found = familieDesFelds(field);
    return found ? std::string{found->name} + " " + std::to_string(found->element) : "none";
}

TEST(FamilieDesFelds, GivesFamilyAndElement)
{
    for (std::int16_t field = 1; field <= 20; ++field)
        EXPECT_EQ(family(field), "_servo_para_ " + std::to_string(field - 1));
    for (std::int16_t field = 21; field <= 24; ++field)
        EXPECT_EQ(family(field), "_servo_para2_ " + std::to_string(field - 21));
    for (std::int16_t field = 31; field <= 34; ++field)
        EXPECT_EQ(family(field), "_servo_schalt_ " + std::to_string(field - 31));
    EXPECT_EQ(family(41), "_servo_zeich_ 0");
    EXPECT_EQ(family(42), "_servo_zeich_ 1");
}

TEST(FamilieDesFelds, KnowsNoneForNumbersWithoutParameter)
{
    constexpr std::int16_t without[]{
        -1, 0, 25, 26, 27, 28, 29, 30, 35, 36, 37, 38, 39, 40, 43, 44, 45, 46, 50, 101};
    for (const std::int16_t field : without)
        EXPECT_EQ(family(field), "none") << field;
}

TEST(Felder, LieOnOneHalf)
{
    for (std::int16_t field = -1; field <= 60; ++field) {
        const bool left = (field >= 1 && field <= 10) || field == 21 || field == 22;
        const bool right = (field >= 11 && field <= 20) || field == 23 || field == 24;
        EXPECT_EQ(istSollwertLinks(field), left) << field;
        EXPECT_EQ(istSollwertRechts(field), right) << field;
        EXPECT_EQ(istSollwert(field), left || right) << field;
        EXPECT_EQ(istSchalter(field), field >= 31 && field <= 34) << field;
        EXPECT_EQ(istZeichnung(field), field >= 41 && field <= 46) << field;
    }
    EXPECT_EQ(sollwertName(22), "SollwertL");
    EXPECT_EQ(sollwertName(23), "SollwertR");
    EXPECT_EQ(schalterName(32), "SchalterL");
    EXPECT_EQ(schalterName(33), "SchalterR");
    EXPECT_EQ(zeichnungName(45), "ZeichnungL");
    EXPECT_EQ(zeichnungName(46), "ZeichnungR");
}

TEST(Felder, DrawingItemsShareTheFieldOfTheirNumber)
{
    for (const std::int16_t field : {std::int16_t{41}, std::int16_t{42}}) {
        for (const std::int16_t item : zeichnungsItems(field))
            EXPECT_EQ(zeichnungsFeld(item), field) << item;
    }
    EXPECT_EQ(zeichnungsItems(41), (std::array<std::int16_t, 3>{41, 43, 45}));
    EXPECT_EQ(zeichnungsItems(42), (std::array<std::int16_t, 3>{42, 44, 46}));
}

} // namespace

#pragma once

#include "servo_page/servo_main.h"
#include "support/lone.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::testing {

// A test of the page of servo 3 of machine M1 alone among fakes, built for an operator of access level 5 who may enter
// values. All elements of an array are one fake.
class LonePage : public ::testing::Test {
protected:
    LonePage()
    {
        display::GemeinsamerZustand& shared = page.surround.zustand;
        shared.MaschinenBez = "M1";
        shared.AktServo = 1;
        shared.ServoNr[1] = 3;
        auto& variables = page.surround.world().variables;
        variables["Ch-1.intern<.passwort>"] = std::int16_t{5};
        variables["parameter<.aufloesung>"] = std::int16_t{1280};
        for (const char* family : {"_servo_para_", "_servo_para_un_", "_servo_para_ob_"})
            variables[variable(family)] = basic::doubles(std::vector<double>(20, 10.0));
        for (const char* family : {"_servo_para2_", "_servo_para2_un_", "_servo_para2_ob_"})
            variables[variable(family)] = basic::doubles(std::vector<double>(4, 20.0));
        variables[variable("_servo_schalt_")] = std::int16_t{5};
        variables[variable("_servo_zeich_")] = basic::doubles({123456789, 7000012});
        page.control.BildInit(1);
        page.surround.errors.reports.clear();
    }

    static std::string variable(std::string_view family)
    {
        std::string name = "Ch1.M1_T_servo_3<.mM1";
        name.append(family).append("3>");
        return name;
    }
    const Reports& reports() const { return page.surround.reports(); }
    // Forgets what a child, or each element of an array, was asked so far.
    void forget(const std::string& child) { page.fake(child)->crossings.clear(); }
    Texts puts(const std::string& child) { return page.fake(child)->puts(); }
    // How many of them begin like this.
    std::ptrdiff_t puts(const std::string& child, std::string_view start)
    {
        const Texts lines = puts(child);
        return std::count_if(
            lines.begin(), lines.end(), [&](const std::string& line) { return line.starts_with(start); });
    }
    void touch(std::int16_t field) { page.control.Sollwert_MouseDown(field, 1, 0, 0, 0); }

    Lone<servo_page::ServoMain> page;
};

} // namespace servopanel::testing

#include "monkey/random_operator.h"

#include <array>
#include <string_view>

namespace servopanel::monkey {

namespace {

constexpr std::array<int, 3> servos{3, 5, 7};

std::string variable(int servo, std::string_view family)
{
    const std::string number = std::to_string(servo);
    return "Ch1.M1_T_servo_" + number + "<.mM1" + std::string{family} + number + ">";
}

std::string text(std::string_view first, int number) { return std::string{first} + std::to_string(number); }

} // namespace

int RandomOperator::upTo(int most) { return static_cast<int>(random_() % static_cast<unsigned>(most + 1)); }

std::string RandomOperator::number()
{
    switch (upTo(5)) {
    case 0: return "0";
    case 1: return std::to_string(upTo(100));
    case 2: return std::to_string(upTo(99)) + "." + std::to_string(upTo(99));
    case 3: return "-" + std::to_string(upTo(50));
    case 4: return "1000000000";
    default: return std::to_string(upTo(9));
    }
}

// One of the inputs of the page, most of them hidden or locked.
std::string RandomOperator::input()
{
    switch (upTo(5)) {
    case 0: return text("SchalterL ", 31 + upTo(1));
    case 1: return text("SchalterR ", 33 + upTo(1));
    case 2: return text("ZeichnungL ", 41 + 2 * upTo(2));
    case 3: return text("SollwertR ", 11 + upTo(9));
    default: return text("SollwertL ", 1 + upTo(9));
    }
}

std::string RandomOperator::next()
{
    const int kind = upTo(99);
    if (kind < 80) return operation();
    if (kind < 92) return machine();
    return failure();
}

std::string RandomOperator::operation()
{
    switch (upTo(24)) {
    case 0:
    case 1:
    case 2:
    case 3:
    case 4:
    case 5: return "touch " + input();
    case 6:
    case 7:
    case 8:
    case 9: return "mask " + number();
    case 10: return "mask cancel";
    case 11:
    case 12: return "key 10";
    case 13: return text("key ", 1 + upTo(10));
    case 14: return "key 11";
    case 15: return "key 4";
    case 16: return "ini " + number() + " " + number() + " " + std::to_string(upTo(5));
    case 17: return "ini cancel";
    case 18: return "timer";
    case 19: return text("language ", upTo(4));
    case 20: return text(upTo(1) == 0 ? "scroll " : "pagescroll ", 1 + upTo(5));
    case 21: return "menudown BildIm " + std::to_string(1 + upTo(2)) + " 100 100";
    case 22: return "menuup BildIm " + std::to_string(1 + upTo(2)) + " 100 100";
    case 23: return text("menukey ", 1 + upTo(10));
    default:
        switch (upTo(8)) {
        case 0: return "terminate";
        case 1: return "create";
        default: return "show";
        }
    }
}

// What the machine or an engineer changes meanwhile.
std::string RandomOperator::machine()
{
    const int servo = servos[static_cast<std::size_t>(upTo(2))];
    const auto numbers = [&](int count) {
        std::string list = "[";
        for (int i = 0; i < count; ++i)
            list.append(i == 0 ? "" : ", ").append(std::to_string(upTo(120))).append(".5");
        return list + "]";
    };
    switch (upTo(9)) {
    case 0: return text("var Ch-1.intern<.passwort> = ", upTo(6));
    case 1: return text("var Ch-1.intern<.servo_zeiger> = ", upTo(4) - 1);
    case 2: return "var " + variable(servo, "_servo_para_") + " = " + numbers(20);
    case 3: return "var " + variable(servo, "_servo_para2_") + " = " + numbers(4);
    case 4: return "var " + variable(servo, "_servo_schalt_") + " = " + std::to_string(upTo(20));
    case 5:
        return "var " + variable(servo, "_servo_zeich_") + " = [" + std::to_string(upTo(999'999'999))
            + ", 1]";
    case 6: return "var " + variable(servo, "_servo_para_ob_") + " = " + numbers(20);
    case 7:
        return text(
            "var parameter<.aufloesung> = ", std::array{800, 1024, 1280}[static_cast<std::size_t>(upTo(2))]);
    case 8: return std::string{"var Ch-1.param_client<.arabisch> = "} + (upTo(1) == 0 ? "true" : "false");
    default: return text("input ", upTo(1) - 1);
    }
}

std::string RandomOperator::failure()
{
    const int servo = servos[static_cast<std::size_t>(upTo(2))];
    constexpr std::array<std::string_view, 5> families{
        "_servo_para_", "_servo_para2_", "_servo_schalt_", "_servo_zeich_", "_servo_para_ob_"};
    const std::string name = variable(servo, families[static_cast<std::size_t>(upTo(4))]);
    switch (upTo(7)) {
    case 0:
    case 1: return "fail read " + name + " " + std::to_string(1 + upTo(2));
    case 2:
    case 3: return "fail write " + name + " " + std::to_string(1 + upTo(2));
    case 4: return "fail load Servo\\ServoMenu_1280.bmp 2";
    case 5: return "fail read Ch-1.intern<.passwort> 1";
    default: return "fail none";
    }
}

} // namespace servopanel::monkey

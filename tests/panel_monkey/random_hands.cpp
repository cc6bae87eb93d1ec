#include "panel_monkey/random_hands.h"

#include <array>
#include <string_view>

namespace servopanel::monkey {

namespace {

constexpr std::array<std::string_view, 22> keys{"F1", "F2", "F3", "F4", "F5", "F6", "F7", "F8", "F9", "F10",
    "F10", "F11", "F12", "Esc", "Menu", "Return", "Backspace", "Tab", "7", "5", "-", "."};

constexpr std::array<std::string_view, 9> files{"Servo/ServoMain_1280.bmp", "Servo/ServoDiag_1280.bmp",
    "Servo/ServoMenu_1280.bmp", "Servo/Servo_3_1280.gif", "Servo/Servo_3.ini", "Servo/Servo.ini",
    "Parameter/Program.ini", "Texts/en.txt", "Texts/de.txt"};

constexpr std::array<std::string_view, 3> widths{"800", "1024", "1280"};

template <std::size_t Count>
std::string one(const std::array<std::string_view, Count>& of, unsigned number)
{
    return std::string{of[number % Count]};
}

} // namespace

std::string RandomHands::place() { return std::to_string(upTo(1000)) + " " + std::to_string(upTo(1000)); }

std::string RandomHands::next()
{
    if (upTo(99) < 90) return operator_.next();
    return std::string{panelOnly} + ofThePanel();
}

std::string RandomHands::ofThePanel()
{
    const unsigned kind = upTo(99);
    if (kind < 35) return "at " + place();
    if (kind < 45) return "drag " + place() + " " + place();
    if (kind < 65) return "press " + one(keys, upTo(keys.size() - 1));
    if (kind < 75) return "back";
    if (kind < 85) return "open";
    if (kind < 88) return "link bad";
    if (kind < 92) return "link good";
    if (kind < 93) return "lose " + one(files, upTo(files.size() - 1));
    if (kind < 94) return "spoil " + one(files, upTo(files.size() - 1));
    if (kind < 96) return "bring " + one(files, upTo(files.size() - 1));
    if (kind < 97) return "restart " + one(widths, upTo(widths.size() - 1));
    return "probe";
}

} // namespace servopanel::monkey

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

template <std::size_t Count>
std::string one(const std::array<std::string_view, Count>& of, unsigned number)
{
    return std::string{of[number % Count]};
}

} // namespace

std::string RandomHands::place() { return std::to_string(upTo(1000)) + " " + std::to_string(upTo(1000)); }

std::string RandomHands::next()
{
    if (coming_.empty() && upTo(99) < 8) beginEdit();
    // Anything may come between the steps of an edit.
    if (!coming_.empty() && upTo(99) < 90) {
        const std::string step = coming_.front();
        coming_.pop_front();
        return step;
    }
    if (upTo(99) < 70) return operator_.next();
    return std::string{panelOnly} + ofThePanel();
}

// Left to chance alone, hardly a value would be changed: a screen with all its reasons against it is found too seldom.
void RandomHands::beginEdit()
{
    constexpr std::array<std::string_view, 6> inputs{
        "SollwertL 1", "SollwertL 2", "SollwertR 11", "SchalterL 31", "SchalterR 33", "ZeichnungL 41"};
    coming_ = {"fail none", std::string{panelOnly} + "link good", std::string{panelOnly} + "probe",
        "var Ch-1.intern<.passwort> = " + std::to_string(1 + upTo(4)), "menudown BildIm 1 100 100"};
    for (unsigned edits = 1 + upTo(2); edits > 0; --edits) {
        coming_.push_back("touch " + one(inputs, upTo(inputs.size() - 1)));
        coming_.push_back("mask " + std::to_string(upTo(60)));
    }
    coming_.push_back(upTo(3) == 0 ? "key 11" : "key 10");
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
    if (kind < 97) return "bring " + one(files, upTo(files.size() - 1));
    return "probe";
}

} // namespace servopanel::monkey

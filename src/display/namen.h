#pragma once

#include "display/zustand.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace servopanel::display {

// The names that are put together from machine, servo and resolution. They are built inside the statement that uses
// them, so that a bad index or an overflow loses the statement and never leaves the name of another servo.

// Project options, machines and their servos.
inline constexpr std::string_view programmIni = "Parameter\\Program.ini";

// A process variable of one servo, such as "Ch1.M1_T_servo_3<.mM1_servo_para_3>" for "_servo_para_". zusatz follows the
// servo number without a separator, as the diagnosis families want it. The machine is named by its designation, or is
// the one of the shared state.
std::string servoVariable(std::string_view maschinenBez, std::string_view familie, std::int16_t servoNummer,
    std::string_view zusatz = {});
std::string servoVariable(const GemeinsamerZustand& zustand, std::string_view familie,
    std::int16_t servoNummer, std::string_view zusatz = {});

// "Ch-1.intern<.member>", a variable of the panel itself.
std::string interneVariable(std::string_view member);

// Language text key of a servo: "Servo.M1.Servo3.41" for text number 41.
std::string textSchlüssel(std::string_view maschinenBez, std::string_view bibliothek,
    std::int16_t servoNummer, std::int16_t textNummer);
std::string textSchlüssel(const GemeinsamerZustand& zustand, std::string_view bibliothek,
    std::int16_t servoNummer, std::int16_t textNummer);

// "Standard\empty_1280.gif" for "empty".
std::string standardBild(const GemeinsamerZustand& zustand, std::string_view stamm);

// "Standard\Machinesymbol_M1_1280.gif".
std::string maschinenSymbol(const GemeinsamerZustand& zustand);

// A servo's picture: "Servo\Servo_M1_3_1280.gif"; with skaliert "Servo\Servo_S_M1_3_1280.gif"; variants from 2 on add
// "_2" behind the servo number.
std::string servoBild(const GemeinsamerZustand& zustand, std::string_view bibliothek,
    std::int16_t servoNummer, std::int16_t variante, bool skaliert);

// Text number of a footer key, and number of the screen that it opens from the menu: 1000 + machine x 100 + key; error 6
// beyond 16 bits.
std::int16_t fußzeilenText(std::int16_t maschine, std::int16_t taste);

} // namespace servopanel::display

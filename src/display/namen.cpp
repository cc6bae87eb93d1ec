#include "display/namen.h"

#include "basic/arithmetic.h"
#include "basic/conversions.h"

#include <initializer_list>

namespace servopanel::display {

namespace {

std::string verkettet(std::initializer_list<std::string_view> teile)
{
    std::string text;
    for (std::string_view teil : teile)
        text += teil;
    return text;
}

} // namespace

std::string servoVariable(std::string_view maschinenBez, std::string_view familie, std::int16_t servoNummer,
    std::string_view zusatz)
{
    const std::string nummer = basic::decimal(std::int32_t{servoNummer});
    return verkettet(
        {"Ch1.", maschinenBez, "_T_servo_", nummer, "<.m", maschinenBez, familie, nummer, zusatz, ">"});
}

std::string servoVariable(const GemeinsamerZustand& zustand, std::string_view familie,
    std::int16_t servoNummer, std::string_view zusatz)
{
    return servoVariable(zustand.MaschinenBez, familie, servoNummer, zusatz);
}

std::string interneVariable(std::string_view member) { return verkettet({"Ch-1.intern<.", member, ">"}); }

std::string textSchlüssel(std::string_view maschinenBez, std::string_view bibliothek,
    std::int16_t servoNummer, std::int16_t textNummer)
{
    return verkettet({bibliothek, ".", maschinenBez, ".", bibliothek,
        basic::decimal(std::int32_t{servoNummer}), ".", basic::decimal(std::int32_t{textNummer})});
}

std::string textSchlüssel(const GemeinsamerZustand& zustand, std::string_view bibliothek,
    std::int16_t servoNummer, std::int16_t textNummer)
{
    return textSchlüssel(zustand.MaschinenBez, bibliothek, servoNummer, textNummer);
}

std::string standardBild(const GemeinsamerZustand& zustand, std::string_view stamm)
{
    return verkettet({"Standard\\", stamm, "_", zustand.AufloesungText, ".gif"});
}

std::string maschinenSymbol(const GemeinsamerZustand& zustand)
{
    return standardBild(zustand, "Machinesymbol_" + zustand.MaschinenBez);
}

std::string servoBild(const GemeinsamerZustand& zustand, std::string_view bibliothek,
    std::int16_t servoNummer, std::int16_t variante, bool skaliert)
{
    const std::string nummer = basic::decimal(std::int32_t{servoNummer});
    const std::string zusatz = variante > 1 ? "_" + basic::decimal(std::int32_t{variante}) : std::string{};
    return verkettet({bibliothek, "\\", bibliothek, skaliert ? "_S_" : "_", zustand.MaschinenPrefix, nummer,
        zusatz, "_", zustand.AufloesungText, ".gif"});
}

std::int16_t fußzeilenText(std::int16_t maschine, std::int16_t taste)
{
    return basic::add16(basic::add16(basic::multiply16(maschine, 100), 1000), taste);
}

} // namespace servopanel::display

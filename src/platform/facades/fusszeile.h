#pragma once

#include "platform/facades/facade.h"

namespace servopanel::platform {

// Bar of footer keys; taste counts from 1.
class Fußzeile : public Facade {
public:
    using Facade::Facade;
    void Freigabe(std::uint8_t taste, bool frei)
    {
        const basic::Variant args[]{taste, frei};
        control().call(ids::Fußzeile::Freigabe, args);
    }
    void TextNummer(std::uint8_t taste, std::int16_t nummer)
    {
        const basic::Variant args[]{taste, nummer};
        control().call(ids::Fußzeile::TextNummer, args);
    }
    void Farbe(std::uint8_t taste, std::int32_t farbe)
    {
        const basic::Variant args[]{taste, farbe};
        control().call(ids::Fußzeile::Farbe, args);
    }
    void Bild(std::uint8_t taste, std::string_view datei)
    {
        const basic::Variant args[]{taste, datei};
        control().call(ids::Fußzeile::Bild, args);
    }
    std::int32_t Einstellung(std::uint8_t taste)
    {
        const basic::Variant args[]{taste};
        return basic::toInt32(control().call(ids::Fußzeile::Einstellung, args));
    }
};

} // namespace servopanel::platform

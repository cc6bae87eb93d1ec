#pragma once

#include "platform/facades/facade.h"

namespace servopanel::platform {

// Switch with two positions.
class Schalter : public Facade {
public:
    using Facade::Facade;
    bool Zustand() const { return basic::toBoolean(control().get(ids::Schalter::Zustand)); }
    void Zustand(bool ein) { control().put(ids::Schalter::Zustand, ein); }
    // The weight of the switch's bit in the machine's switch word, or 0; anything but 0 is on.
    void Zustand(std::int32_t gewicht) { control().put(ids::Schalter::Zustand, gewicht); }
    void Freigabe(bool frei) { control().put(ids::Schalter::Freigabe, frei); }
};

} // namespace servopanel::platform

#pragma once

#include "platform/facades/facade.h"

namespace servopanel::platform {

// Editor of a parameter definition: access level and the two limits of the input.
class IniEingabe : public Facade {
public:
    using Facade::Facade;
    bool Offen() const { return basic::toBoolean(control().get(ids::IniEingabe::Offen)); }
    void Offen(bool offen) { control().put(ids::IniEingabe::Offen, offen); }
    std::int16_t Pass() const { return basic::toInt16(control().get(ids::IniEingabe::Pass)); }
    void Pass(std::int16_t stufe) { control().put(ids::IniEingabe::Pass, stufe); }
    double Max() const { return basic::toDouble(control().get(ids::IniEingabe::Max)); }
    void Max(double grenze) { control().put(ids::IniEingabe::Max, grenze); }
    double Min() const { return basic::toDouble(control().get(ids::IniEingabe::Min)); }
    void Min(double grenze) { control().put(ids::IniEingabe::Min, grenze); }
};

} // namespace servopanel::platform

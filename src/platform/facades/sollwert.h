#pragma once

#include "platform/facades/facade.h"

namespace servopanel::platform {

// Input field of a setpoint, and the page's invisible carrier of a drawing number part.
class Sollwert : public Facade {
public:
    using Facade::Facade;
    // The process variable that mirrors the field's value while it is edited.
    void VariablenName(std::string_view name) { control().put(ids::VWSVarIn::VariablenName, name); }
    basic::Variant Wert() const { return control().get(ids::VWSVarIn::Wert); }
    void Wert(const basic::Variant& wert) { control().put(ids::VWSVarIn::Wert, wert); }
    void Obergrenze(std::string_view grenze) { control().put(ids::VWSVarIn::Obergrenze, grenze); }
    void Untergrenze(std::string_view grenze) { control().put(ids::VWSVarIn::Untergrenze, grenze); }
    std::int32_t Vordergrund() const { return basic::toInt32(control().get(ids::VWSVarIn::Vordergrund)); }
    void Vordergrund(std::int32_t farbe) { control().put(ids::VWSVarIn::Vordergrund, farbe); }
};

} // namespace servopanel::platform

#pragma once

#include "platform/facades/facade.h"

namespace servopanel::platform {

// Numeric input mask: edits the value of its target within the target's own limits.
class Eingabemaske : public Facade {
public:
    using Facade::Facade;
    bool Offen() const { return basic::toBoolean(control().get(ids::Eingabemaske::Offen)); }
    void Offen(bool offen) { control().put(ids::Eingabemaske::Offen, offen); }
    void Ziel(const ControlRef& ziel) { control().putRef(ids::Eingabemaske::Ziel, {}, ziel); }
};

} // namespace servopanel::platform

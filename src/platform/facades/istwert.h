#pragma once

#include "platform/facades/facade.h"

namespace servopanel::platform {

// Display of an actual value.
class Istwert : public Facade {
public:
    using Facade::Facade;
    void Wert(const basic::Variant& wert) { control().put(ids::VWSVarOut::Wert, wert); }
};

} // namespace servopanel::platform

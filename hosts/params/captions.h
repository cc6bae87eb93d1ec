#pragma once

#include "machine/texts.h"
#include "params/parameter.h"

#include <string>
#include <utility>

namespace servopanel::params {

// What the page calls its values, in one language of a project.
class Captions {
public:
    Captions() = default; // knows none
    explicit Captions(machine::Texts texts)
        : texts_{std::move(texts)}
    {
    }

    struct Caption {
        std::string name;
        std::string unit;
    };
    // Empty for what has no text.
    Caption of(const std::string& machine, const Place& place) const;

private:
    machine::Texts texts_;
};

} // namespace servopanel::params

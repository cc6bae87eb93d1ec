#pragma once

#include "check/project.h"

#include <cstdint>

namespace servopanel::check {

// The most machines of a project: a plant has less, and a mistyped number must not take hours.
inline constexpr std::int16_t mostMachines = 20;

// How many machines the project has; when its own number cannot be that, as many as have a designation one after the
// other. From 1 to mostMachines.
std::int16_t machinesOf(const CheckedProject& project);

// Notes the variables whose start value is a list that is too long, or of another type than the library means. The
// latter get one of the right type in the project that is being checked: a variable keeps its type, so that all that is
// read or written later would go wrong as well. The INI files must have been read.
void setRightTypes(CheckedProject& project);

} // namespace servopanel::check

#pragma once

#include "basic/error.h"
#include "display/zustand.h"
#include "platform/library_platform.h"

namespace servopanel::display {

// What every procedure works in: the surroundings, the shared state and the place where errors are reported.
struct Umfeld {
    platform::LibraryPlatform platform;
    GemeinsamerZustand& zustand;
    basic::ErrorSink& fehler;
};

// The objects of the surroundings that are made on first use; basic::Error when that fails, and the next use tries
// again.
platform::ProcessVarAccess& processVarAccess(Umfeld& umfeld);
platform::PathHelper& pathHelper(Umfeld& umfeld);
platform::DBEngine& dbEngine(Umfeld& umfeld);

// ReadValue and WriteValue of the shared access object, for statements that need nothing else of it.
basic::Variant ReadValue(Umfeld& umfeld, std::string_view name);
void WriteValue(Umfeld& umfeld, std::string_view name, const basic::Variant& value);

// Whether there is another machine to switch to; basic::Error when the number of machines cannot be read.
bool mehrereMaschinen(Umfeld& umfeld);

} // namespace servopanel::display

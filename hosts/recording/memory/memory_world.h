#pragma once

#include "recording/memory/failures.h"
#include "recording/memory/memory_variables.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace servopanel::recording {

// What the recording host answers from, apart from files.
struct MemoryWorld {
    Failures failures;
    MemoryVariables variables{failures};
    std::map<std::string, std::string, std::less<>> texts; // language texts by key
    // Gives the language texts instead when it is set.
    std::function<std::string(std::string_view key)> lookUpText;
    std::map<std::string, std::string, std::less<>> environment;
    std::string libraryName = "Servo";
    float twipsPerPixelX = 15;
    float twipsPerPixelY = 15;
    std::int16_t inputPermission = -1;
    std::string lastReport; // the composed text of the last error report
};

} // namespace servopanel::recording

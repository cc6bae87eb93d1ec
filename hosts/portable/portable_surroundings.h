#pragma once

#include "platform/surroundings.h"

#include <string>
#include <utility>

namespace servopanel::portable {

// A variable of the process's environment by its exact name; texts that are not UTF-8 are taken as Windows-1252.
platform::EnvironmentValue environmentValue(std::string_view name);

// The surroundings but for the event pump, which belongs to the host's event loop.
class PortableSurroundings : public platform::Surroundings {
public:
    struct Settings {
        std::string libraryName = "Servo";
        float twipsPerPixelX = 15;
        float twipsPerPixelY = 15;
    };

    explicit PortableSurroundings(Settings settings)
        : settings_{std::move(settings)}
    {
    }

    platform::EnvironmentValue environment(std::string_view name) override { return environmentValue(name); }
    std::string libraryName() override { return settings_.libraryName; }
    float twipsPerPixelX() override { return settings_.twipsPerPixelX; }
    float twipsPerPixelY() override { return settings_.twipsPerPixelY; }

private:
    Settings settings_;
};

} // namespace servopanel::portable

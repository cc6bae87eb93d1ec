#include "recording/replay.h"

#include "shell/library.h"

#include <memory>

namespace servopanel::recording {

ControlMaker makeLibrary(const platform::LibraryPlatform& platform)
{
    auto library = std::make_shared<shell::Library>(platform);
    return [library](std::string_view className, const platform::ControlPlatform& controlPlatform) {
        return library->createControl(className, controlPlatform);
    };
}

} // namespace servopanel::recording

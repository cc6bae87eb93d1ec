#pragma once

#include <string>
#include <string_view>

namespace servopanel::platform {

struct EnvironmentValue {
    enum class State { Missing, Present, TooLong };
    State state = State::Missing;
    std::string text; // only when present
};

class Surroundings {
public:
    virtual ~Surroundings() = default;

    // An environment variable; too long when its value has more than 4095 characters.
    virtual EnvironmentValue environment(std::string_view name) = 0;
    // Name of the library's file without path and extension; it names the project's folder and files of the library.
    virtual std::string libraryName() = 0;
    // Twips per pixel of the screen; 15 and 12 both occur.
    virtual float twipsPerPixelX() = 0;
    virtual float twipsPerPixelY() = 0;
    // Lets pending events run; handlers of this library may be entered before it returns.
    virtual void letEventsRun() = 0;
};

} // namespace servopanel::platform

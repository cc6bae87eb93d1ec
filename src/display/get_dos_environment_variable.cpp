#include "display/mglobal.h"

#include "basic/statement_trap.h"

namespace servopanel::display {

namespace {

// Characters of the text that receives the value.
constexpr std::size_t pufferLänge = 4096;

std::string inhalt(const platform::EnvironmentValue& wert)
{
    switch (wert.state) {
    case platform::EnvironmentValue::State::Present: return wert.text;
    // LEGACY: a value that does not fit leaves the buffer as it was prepared.
    case platform::EnvironmentValue::State::TooLong: return std::string(pufferLänge, ' ');
    case platform::EnvironmentValue::State::Missing: break;
    }
    return {};
}

} // namespace

std::string MGlobal::GetDOSEnvironmentVariable(std::string_view name)
{
    basic::StatementTrap trap{umfeld_.fehler, "GetDOSEnvironmentVariable"};
    std::string wert;
    trap([&] { wert = inhalt(umfeld_.platform.surroundings.environment(name)); });
    return wert;
}

} // namespace servopanel::display

#include "jet/servo_defs/command_line.h"

#include "jet/jet_error.h"

#include <algorithm>

namespace servopanel::jet {

CommandLine::CommandLine(const std::vector<std::string>& arguments, const std::vector<Option>& options,
    std::size_t fewest, std::size_t most)
{
    bool onlyPlain = false;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (onlyPlain || argument->size() < 2 || argument->front() != '-') {
            plain_.push_back(*argument);
            continue;
        }
        if (*argument == "--") {
            onlyPlain = true;
            continue;
        }
        const auto option = std::find_if(
            options.begin(), options.end(), [&](const Option& known) { return known.name == *argument; });
        if (option == options.end())
            raise(JetError::TypeMismatch, "there is no option " + *argument + " here");
        if (option->takesValue && argument + 1 == arguments.end())
            raise(JetError::TypeMismatch, "option " + *argument + " needs a value");
        given_.push_back({option->name, option->takesValue ? *++argument : ""});
    }
    if (plain_.size() < fewest) raise(JetError::TypeMismatch, "an argument is missing");
    if (plain_.size() > most)
        raise(JetError::TypeMismatch, "'" + plain_[most] + "' is one argument too many");
}

std::optional<std::string> CommandLine::value(const std::string& option) const
{
    const auto found =
        std::find_if(given_.begin(), given_.end(), [&](const Given& given) { return given.name == option; });
    if (found == given_.end()) return std::nullopt;
    return found->value;
}

} // namespace servopanel::jet

#pragma once

#include <optional>
#include <string>
#include <vector>

namespace servopanel::jet {

// Exit status of the tool.
enum class Result {
    Good = 0,
    Findings = 1, // check found something, diff or import a difference
    Failed = 2,
};

// The arguments of a command, split into those that stand by themselves and options, which begin with "-". An option that
// takes a value gets the argument that follows. Behind "--" there are no options.
class CommandLine {
public:
    struct Option {
        std::string name; // "--machine"
        bool takesValue = false;
    };
    // Raises TypeMismatch for an unknown option, a missing value, or another number of arguments.
    CommandLine(const std::vector<std::string>& arguments, const std::vector<Option>& options,
        std::size_t fewest, std::size_t most);

    const std::vector<std::string>& plain() const { return plain_; }
    bool has(const std::string& option) const { return value(option).has_value(); }
    // "" for an option that takes none.
    std::optional<std::string> value(const std::string& option) const;

private:
    struct Given {
        std::string name;
        std::string value;
    };
    std::vector<std::string> plain_;
    std::vector<Given> given_;
};

} // namespace servopanel::jet

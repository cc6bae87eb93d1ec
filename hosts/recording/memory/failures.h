#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace servopanel::recording {

enum class FailureKind { ReadVariable, WriteVariable, LoadPicture, SavePicture, CreateFolder, UpdateRow };

// Accesses that a scenario wants to fail, with how often.
class Failures {
public:
    static constexpr std::int32_t always = -1;

    // name: a variable, a full path, or empty for database rows. A repeated call replaces the number of times.
    void arrange(FailureKind kind, std::string_view name, std::int32_t times);
    void clear() { remaining_.clear(); }

    // Whether the access that begins now is to fail; counts it.
    bool take(FailureKind kind, std::string_view name);

private:
    std::map<std::pair<FailureKind, std::string>, std::int32_t> remaining_;
};

// Raises basic::Error with a number of the platform's own.
[[noreturn]] void raiseError(std::int32_t number, const std::string& description);

} // namespace servopanel::recording

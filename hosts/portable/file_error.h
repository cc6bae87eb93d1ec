#pragma once

#include "basic/error.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>

namespace servopanel::portable {

// The classic numbers for trouble with files.
enum class FileError : std::int32_t {
    FileNotFound = 53,
    AccessError = 75,
    PathNotFound = 76,
};

// An error whose text begins with the quoted file name: "'Servo\x.ini': permission denied".
basic::Error fileError(FileError error, std::string_view name, std::string_view reason);
[[noreturn]] void raiseFileError(FileError error, std::string_view name, std::string_view reason);

// The system's reason in words that do not depend on its language settings.
std::string reasonText(std::error_code code);

} // namespace servopanel::portable

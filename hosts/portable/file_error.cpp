#include "portable/file_error.h"

#include <utility>

namespace servopanel::portable {

basic::Error fileError(FileError error, std::string_view name, std::string_view reason)
{
    std::string description{"'"};
    description += name;
    description += "': ";
    description += reason;
    return {static_cast<std::int32_t>(error), "Files", std::move(description)};
}

void raiseFileError(FileError error, std::string_view name, std::string_view reason)
{
    throw fileError(error, name, reason);
}

std::string reasonText(std::error_code code)
{
    if (code == std::errc::no_such_file_or_directory) return "there is no such file or folder";
    if (code == std::errc::permission_denied) return "permission denied";
    if (code == std::errc::operation_not_permitted) return "the system does not permit it";
    if (code == std::errc::not_a_directory) return "a part of its path is no folder";
    if (code == std::errc::is_a_directory) return "it is a folder";
    if (code == std::errc::file_exists) return "it exists already";
    if (code == std::errc::no_space_on_device) return "no space left on the disk";
    if (code == std::errc::read_only_file_system) return "the disk is read-only";
    if (code == std::errc::too_many_symbolic_link_levels) return "its symbolic links lead in a circle";
    if (code == std::errc::filename_too_long) return "the name is too long";
    if (code == std::errc::io_error) return "input/output error";
    return "system error " + std::to_string(code.value());
}

} // namespace servopanel::portable

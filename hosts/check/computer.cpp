#include "check/computer.h"

#include <cerrno>
#include <cstdlib>
#include <system_error>

#include <unistd.h>

namespace servopanel::check {

Computer thisComputer()
{
    return {[](const char* name) -> std::optional<std::string> {
                const char* const value = std::getenv(name);
                return value == nullptr ? std::nullopt : std::optional<std::string>{value};
            },
        [](const std::filesystem::path& folder) -> std::string {
            if (::access(folder.c_str(), W_OK | X_OK) == 0) return {};
            return errno == EROFS ? "is on a disk that is read-only" : "may not be written to by this user";
        },
        [](const std::filesystem::path& folder) -> std::optional<std::uintmax_t> {
            std::error_code code;
            const auto space = std::filesystem::space(folder, code);
            return code ? std::nullopt : std::optional<std::uintmax_t>{space.available};
        }};
}

} // namespace servopanel::check

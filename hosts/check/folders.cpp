#include "check/folders.h"

#include "portable/file_error.h"

#include <system_error>

namespace servopanel::check {

namespace fs = std::filesystem;

std::string folderMistake(const CheckedProject& project, const std::string& folder)
{
    const std::optional<fs::path> place =
        folder.empty() ? std::optional{project.folder} : project.mapping.find(folder);
    if (!place) return "no such folder";
    std::error_code code;
    if (!fs::is_directory(*place, code)) return "is no folder";
    const fs::directory_iterator files{*place, code};
    return code ? "cannot be read: " + portable::reasonText(code) : std::string{};
}

} // namespace servopanel::check

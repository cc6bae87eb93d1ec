#include "check/folders.h"

#include "basic/text.h"
#include "portable/file_error.h"

#include <system_error>

namespace servopanel::check {

namespace fs = std::filesystem;

namespace {

std::vector<std::string> namesAt(const fs::path& place)
{
    std::vector<std::string> names;
    std::error_code code;
    for (fs::directory_iterator file{place, code}, end; !code && file != end; file.increment(code))
        names.push_back(file->path().filename().string());
    return names;
}

} // namespace

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

std::vector<std::string> namesIn(const CheckedProject& project, const std::string& folder)
{
    const std::optional<fs::path> place = project.mapping.find(folder);
    return place ? namesAt(*place) : std::vector<std::string>{};
}

std::optional<std::string> inOtherLetters(const fs::path& folder, const std::string& name)
{
    std::optional<std::string> other;
    for (const std::string& each : namesAt(folder)) {
        if (each == name) return std::nullopt;
        if (basic::upperCase(each) == basic::upperCase(name)) other = each;
    }
    return other;
}

} // namespace servopanel::check

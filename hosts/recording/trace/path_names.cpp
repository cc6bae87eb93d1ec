#include "recording/trace/path_names.h"

namespace servopanel::recording {

void PathNames::learn(std::string_view name, std::string_view fullPath)
{
    names_.insert_or_assign(std::string{fullPath}, std::string{name});
    const bool isRelative = fullPath.size() > name.size() && !name.empty();
    if (isRelative && fullPath.substr(fullPath.size() - name.size()) == name)
        folder_ = fullPath.substr(0, fullPath.size() - name.size());
}

std::string PathNames::name(std::string_view path) const
{
    if (const auto known = names_.find(path); known != names_.end()) return known->second;
    if (!folder_.empty() && path.substr(0, folder_.size()) == folder_) path.remove_prefix(folder_.size());
    return std::string{path};
}

std::string PathNames::message(std::string_view text) const
{
    std::string shown{text};
    if (folder_.empty()) return shown;
    constexpr std::string_view placeholder = "<project>\\";
    for (std::size_t at = shown.find(folder_); at != std::string::npos;
         at = shown.find(folder_, at + placeholder.size()))
        shown.replace(at, folder_.size(), placeholder);
    return shown;
}

} // namespace servopanel::recording

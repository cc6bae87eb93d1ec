#pragma once

#include <filesystem>
#include <string_view>

namespace servopanel::portable {

// Gives a file this content. The panel may lose power at any time: the content goes into a new file beside it, which
// takes its place only when it is completely on the disk. Permissions of the old file are kept. Error 76 when the
// folder is missing, 75 for everything else. name: the file's name for the error texts.
void replaceFile(const std::filesystem::path& file, std::string_view content, std::string_view name);

} // namespace servopanel::portable

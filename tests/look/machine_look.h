#pragma once

#include <filesystem>
#include <string>

namespace servopanel::look {

// What decides how letters look on this machine: versions of Qt, the font renderer and the fonts, one a line.
std::string lookOfThisMachine();
// The same as it was when the reference pictures were drawn; "" when nobody wrote it down.
std::string recordedLook(const std::filesystem::path& file);
void recordLook(const std::filesystem::path& file);

// The system that the pictures are drawn on; there they are always compared.
bool isReferenceSystem();

} // namespace servopanel::look

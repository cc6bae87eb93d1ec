#pragma once

#include "recording/memory/project.h"

#include <optional>
#include <string_view>

namespace servopanel::recording {

// The size that a picture file's header tells: BMP, GIF, PNG, JPEG and placeable WMF (at 96 dots per inch). bytes: the
// whole file. Nothing when it is none of these or damaged.
std::optional<PictureSize> pictureSize(std::string_view bytes);

} // namespace servopanel::recording

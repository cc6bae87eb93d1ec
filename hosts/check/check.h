#pragma once

#include "check/computer.h"

#include <filesystem>
#include <functional>
#include <string>

namespace servopanel::check {

// How large a picture is, or why it cannot be shown. The panel gives its own reader, so that a picture counts as whole
// here when the panel shows it.
struct PictureLook {
    int width = 0; // pixels
    int height = 0;
    std::string mistake; // empty when it is whole
};
using PictureReader = std::function<PictureLook(const std::filesystem::path& file)>;

struct Report {
    enum class Result { Good, Findings, NoProject };
    Result result = Result::Good;
    std::string text; // whole lines: the findings and their count, or why this is no project
};

// Finds what a project lacks before an operator does: by what its files say, and by going through all of it with the
// library. The folder is only read. Never fails: what cannot be read is a finding.
Report checkProject(const std::filesystem::path& folder, const PictureReader& readPicture,
    const Computer& computer = thisComputer());

} // namespace servopanel::check

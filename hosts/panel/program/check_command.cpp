#include "panel/program/check_command.h"

#include "basic/error.h"
#include "panel/pictures/picture_file.h"

#include <cstdio>
#include <string>

namespace servopanel::panel {

check::PictureLook lookAtPicture(const std::filesystem::path& file)
{
    const std::string name = file.filename().string();
    try {
        const QImage picture = loadPicture(file, name);
        return {picture.width(), picture.height(), {}};
    } catch (const basic::Error& error) {
        // The finding names the file already.
        const std::string prefix = "'" + name + "': ";
        const bool isNamed = error.description.compare(0, prefix.size(), prefix) == 0;
        return {0, 0, isNamed ? error.description.substr(prefix.size()) : error.description};
    }
}

int runCheck(const std::filesystem::path& project)
{
    using Result = check::Report::Result;
    const check::Report report = check::checkProject(project, lookAtPicture);
    if (report.result == Result::NoProject) {
        std::fputs(("servo-panel: " + report.text).c_str(), stderr);
        return 2;
    }
    std::fputs(report.text.c_str(), stdout);
    return report.result == Result::Good ? 0 : 1;
}

} // namespace servopanel::panel

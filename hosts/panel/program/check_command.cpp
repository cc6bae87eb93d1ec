#include "panel/program/check_command.h"

#include "basic/error.h"
#include "panel/pictures/picture_file.h"

#include <fcntl.h>
#include <unistd.h>

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

namespace {

// While this lives, nothing goes to standard error: of a damaged database its reader says so much there that nobody
// would find the findings.
class SilentErrors {
public:
    SilentErrors()
        : kept_{::dup(STDERR_FILENO)}
    {
        const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        if (kept_ >= 0 && nowhere >= 0) ::dup2(nowhere, STDERR_FILENO);
        if (nowhere >= 0) ::close(nowhere);
    }
    SilentErrors(const SilentErrors&) = delete;
    SilentErrors& operator=(const SilentErrors&) = delete;
    ~SilentErrors()
    {
        if (kept_ < 0) return;
        ::dup2(kept_, STDERR_FILENO);
        ::close(kept_);
    }

private:
    int kept_;
};

check::Report checked(const std::filesystem::path& project)
{
    const SilentErrors silent;
    return check::checkProject(project, lookAtPicture);
}

} // namespace

int runCheck(const std::filesystem::path& project)
{
    using Result = check::Report::Result;
    const check::Report report = checked(project);
    if (report.result == Result::NoProject) {
        std::fputs(("servo-panel: " + report.text).c_str(), stderr);
        return 2;
    }
    if (std::fputs(report.text.c_str(), stdout) < 0 || std::fflush(stdout) != 0) {
        std::fputs("servo-panel: the report cannot be written\n", stderr);
        return 2;
    }
    return report.result == Result::Good ? 0 : 1;
}

} // namespace servopanel::panel

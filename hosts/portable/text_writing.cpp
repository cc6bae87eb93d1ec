#include "portable/text_writing.h"

#include "portable/file_error.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace servopanel::portable {

namespace {

namespace fs = std::filesystem;

// A new file that vanishes again unless it has taken the place of another.
class Replacement {
public:
    explicit Replacement(const fs::path& file)
        : name_{(file.parent_path() / ".servopanel-XXXXXX").string()}
        , descriptor_{::mkostemp(name_.data(), O_CLOEXEC)}
    {
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    ~Replacement()
    {
        if (descriptor_ < 0) return;
        ::close(descriptor_);
        if (!placed_) ::unlink(name_.c_str());
    }

    bool isOpen() const { return descriptor_ >= 0; }

    bool write(std::string_view content)
    {
        while (!content.empty()) {
            const ssize_t written = ::write(descriptor_, content.data(), content.size());
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) return false;
            content.remove_prefix(static_cast<std::size_t>(written));
        }
        return true;
    }

    bool place(const fs::path& file)
    {
        struct stat old { };
        const mode_t mode = ::stat(file.c_str(), &old) == 0 ? old.st_mode & 07777U : 0644U;
        if (::fchmod(descriptor_, mode) != 0 || ::fsync(descriptor_) != 0) return false;
        placed_ = std::rename(name_.c_str(), file.c_str()) == 0;
        return placed_;
    }

private:
    std::string name_;
    int descriptor_;
    bool placed_ = false;
};

[[noreturn]] void raiseLastError(std::string_view name)
{
    raiseFileError(FileError::AccessError, name, reasonText({errno, std::generic_category()}));
}

} // namespace

void replaceFile(const fs::path& file, std::string_view content, std::string_view name)
{
    std::error_code ignored;
    if (!fs::is_directory(file.parent_path(), ignored))
        raiseFileError(FileError::PathNotFound, name, "its folder does not exist");
    // Taking the place of a write-protected file would work, but whoever protected it meant it.
    if (fs::exists(file, ignored) && ::access(file.c_str(), W_OK) != 0) raiseLastError(name);
    Replacement replacement{file};
    if (!replacement.isOpen() || !replacement.write(content) || !replacement.place(file))
        raiseLastError(name);
}

} // namespace servopanel::portable

#include "jet/disk_file.h"

#include "jet/names.h"
#include "jet/open_file.h"
#include "portable/file_error.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>

namespace servopanel::jet {

namespace {

namespace fs = std::filesystem;

// Far more than a table of definitions needs; the file is held in memory.
constexpr off_t largestFile = off_t{256} * 1024 * 1024;

std::string lastReason() { return portable::reasonText({errno, std::generic_category()}); }

[[noreturn]] void raiseLast(JetError number, std::string_view what)
{
    const bool full = errno == ENOSPC || errno == EDQUOT || errno == EFBIG;
    const bool readOnly = errno == EACCES || errno == EPERM || errno == EROFS;
    raise(full         ? JetError::DiskFull
            : readOnly ? JetError::ReadOnly
                       : number,
        std::string{what} + ": " + lastReason());
}

// A new file beside another one. It vanishes again unless it has taken the other's place. Its name is always the same:
// what a killed program left behind is removed by the next one.
class Successor {
public:
    explicit Successor(const fs::path& file)
        : path_{cleared(file.parent_path() / ("." + file.filename().string() + ".new"))}
        , file_{path_, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0600}
    {
        if (!file_.isOpen()) raiseLast(JetError::CannotUpdate, "nothing can be written to its folder");
    }
    Successor(const Successor&) = delete;
    Successor& operator=(const Successor&) = delete;
    ~Successor()
    {
        if (!placed_) ::unlink(path_.c_str());
    }

    void resemble(const struct stat& old) const
    {
        struct stat own { };
        if (::fstat(file_.descriptor(), &own) != 0)
            raiseLast(JetError::CannotUpdate, "it cannot be replaced");
        const bool sameOwner = own.st_uid == old.st_uid && own.st_gid == old.st_gid;
        if (!sameOwner && ::fchown(file_.descriptor(), old.st_uid, old.st_gid) != 0)
            raiseLast(JetError::ReadOnly, "a changed file could not have the same owner");
        if (::fchmod(file_.descriptor(), old.st_mode & 07777U) != 0)
            raiseLast(JetError::CannotUpdate, "a changed file could not have the same permissions");
    }
    void makeReadableByAll() const { ::fchmod(file_.descriptor(), 0644); }

    // Writes and reads it again, so that a failing disk is found before the old file goes.
    Bytes fill(ByteView content)
    {
        if (!file_.write(content) || ::fsync(file_.descriptor()) != 0)
            raiseLast(JetError::CannotUpdate, "it cannot be written");
        file_.close();
        OpenFile again{path_, O_RDONLY};
        Bytes read;
        if (!again.isOpen() || !again.read(read, content.size() + 1))
            raiseLast(JetError::CannotUpdate, "what was written cannot be read");
        if (!std::equal(read.begin(), read.end(), content.begin(), content.end()))
            raise(JetError::CannotUpdate, "what was written does not come back from the disk");
        return read;
    }

    void takePlaceOf(const fs::path& file)
    {
        if (::rename(path_.c_str(), file.c_str()) != 0)
            raiseLast(JetError::CannotUpdate, "it cannot be replaced");
        placed_ = true;
        // The new file is in its place. When this fails a power cut may bring the old one back, never a mixture.
        const OpenFile folder{file.parent_path(), O_RDONLY | O_DIRECTORY};
        if (folder.isOpen()) ::fsync(folder.descriptor());
    }

private:
    static fs::path cleared(fs::path path)
    {
        ::unlink(path.c_str());
        return path;
    }

    fs::path path_;
    OpenFile file_;
    bool placed_ = false;
};

// Programs that share such a database keep this file beside it while anybody has it open.
void refuseLocked(const fs::path& file)
{
    const std::string wanted = fs::path{file.filename()}.replace_extension(".ldb").string();
    std::error_code code;
    for (fs::directory_iterator entry{file.parent_path(), code}; !code && entry != fs::directory_iterator{};
         entry.increment(code)) {
        const std::string name = entry->path().filename().string();
        if (sameName(name, wanted))
            raise(JetError::FileInUse, "another user has it open (lock file '" + name + "')");
    }
}

void refuseChanged(const DiskFile& file)
{
    struct stat now { };
    if (::stat(file.path.c_str(), &now) != 0) raiseLast(JetError::CannotUpdate, "it cannot be found again");
    if (identityOf(now) != file.identity)
        raise(JetError::RowChanged, "another program has changed it since it was read");
}

} // namespace

DiskFile readFile(const fs::path& path)
{
    std::error_code code;
    DiskFile file{fs::canonical(path, code), {}, {}};
    if (code == std::errc::no_such_file_or_directory) raise(JetError::FileNotFound, "there is no such file");
    if (code) raise(JetError::CannotOpen, portable::reasonText(code));
    OpenFile source{file.path, O_RDONLY};
    struct stat status { };
    if (!source.isOpen() || ::fstat(source.descriptor(), &status) != 0)
        raise(JetError::CannotOpen, lastReason());
    if (!S_ISREG(status.st_mode)) raise(JetError::CannotOpen, "it is no file but a folder or a device");
    if (status.st_size > largestFile) raise(JetError::CannotOpen, "it is larger than 256 MB");
    if (!source.read(file.bytes, static_cast<std::size_t>(status.st_size)))
        raise(JetError::CannotOpen, lastReason());
    file.identity = identityOf(status);
    if (::fstat(source.descriptor(), &status) != 0 || identityOf(status) != file.identity)
        raise(JetError::FileInUse, "another program is writing to it");
    return file;
}

void replaceFile(const DiskFile& file, ByteView content, const std::function<void(const Bytes&)>& verify)
{
    const OpenFile original{file.path, O_RDONLY};
    struct stat old { };
    if (!original.isOpen() || ::fstat(original.descriptor(), &old) != 0)
        raiseLast(JetError::CannotUpdate, "it cannot be opened again");
    // Two panels never replace the same file at the same time. Some network disks have no locks; then the comparison
    // with what was read has to do.
    if (::flock(original.descriptor(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        raise(JetError::FileInUse, "another program is changing it");
    refuseLocked(file.path);
    refuseChanged(file);
    // Taking the place of a write-protected file would work, but whoever protected it meant it.
    if (::faccessat(AT_FDCWD, file.path.c_str(), W_OK, AT_EACCESS) != 0)
        raiseLast(JetError::ReadOnly, "it is write-protected");

    Successor successor{file.path};
    successor.resemble(old);
    verify(successor.fill(content));
    refuseChanged(file);
    successor.takePlaceOf(file.path);
}

void createFile(const fs::path& path, ByteView content, bool mayReplace)
{
    std::error_code code;
    const fs::path folder =
        fs::canonical(path.parent_path().empty() ? fs::path{"."} : path.parent_path(), code);
    if (code) raise(JetError::CannotOpen, "its folder: " + portable::reasonText(code));
    fs::path file = folder / path.filename();
    if (fs::exists(fs::symlink_status(file, code))) {
        if (!mayReplace) raise(JetError::AlreadyExists, "it exists already");
        // A symbolic link goes on leading to the file.
        if (const fs::path real = fs::canonical(file, code); !code) file = real;
        if (fs::is_directory(file, code)) raise(JetError::CannotOpen, "it is a folder");
    }
    Successor successor{file};
    successor.makeReadableByAll();
    successor.fill(content);
    successor.takePlaceOf(file);
}

} // namespace servopanel::jet

#include "jet/disk_file.h"

#include "jet/file_kind.h"
#include "jet/names.h"
#include "jet/open_file.h"
#include "jet/successor.h"
#include "jet/system_failure.h"
#include "portable/file_error.h"

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

// Taking the place of a write-protected file would work, but whoever protected it meant it: everybody, root too.
void refuseProtected(const fs::path& file, const struct stat& status)
{
    constexpr mode_t writable = 0222;
    if ((status.st_mode & writable) == 0) raise(JetError::ReadOnly, "it is write-protected");
    if (::faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS) != 0)
        raiseLast(JetError::ReadOnly, "it is write-protected");
}

// A file that somebody named by mistake is not lost.
void refuseOtherKind(FileKind old, FileKind created)
{
    if (old == created || old == FileKind::Empty) return;
    raise(JetError::AlreadyExists,
        created == FileKind::Database ? "it is no database; only a database is replaced by one"
                                      : "it is no text; only a text is replaced by one");
}

// The file that a name leads to, or where it would be: the end of a symbolic link may not exist yet.
fs::path withoutLinks(fs::path path)
{
    std::error_code code;
    constexpr int mostLinks = 40;
    for (int links = 0; fs::is_symlink(fs::symlink_status(path, code)); ++links) {
        if (links == mostLinks) raise(JetError::CannotOpen, "its symbolic links lead in a circle");
        path = path.parent_path() / fs::read_symlink(path, code);
        if (code) raise(JetError::CannotOpen, portable::reasonText(code));
    }
    const fs::path folder =
        fs::canonical(path.parent_path().empty() ? fs::path{"."} : path.parent_path(), code);
    if (code) raise(JetError::CannotOpen, "its folder: " + portable::reasonText(code));
    return folder / path.filename();
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

void replaceFile(const DiskFile& file, ByteView content, const Verify& verify)
{
    const OpenFile original{file.path, O_RDONLY};
    struct stat old { };
    if (!original.isOpen() || ::fstat(original.descriptor(), &old) != 0)
        raiseLast(JetError::CannotUpdate, "it cannot be opened again");
    // Two panels never replace the same file at the same time. Some network disks have no locks; then the comparison
    // with what was read has to do.
    if (::flock(original.descriptor(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        raise(JetError::FileInUse, "another program is changing it");
    if (kindOf(file.bytes) == FileKind::Database) refuseLocked(file.path);
    refuseChanged(file);
    refuseProtected(file.path, old);

    Successor successor{file.path, 0600};
    successor.resemble(old);
    verify(successor.fill(content));
    refuseChanged(file);
    successor.takePlace();
}

void createFile(const fs::path& path, ByteView content, bool mayReplace, const Verify& verify)
{
    const fs::path file = withoutLinks(path);
    struct stat status { };
    if (::stat(file.c_str(), &status) == 0) {
        if (!mayReplace) raise(JetError::AlreadyExists, "it exists already");
        const DiskFile old = readFile(file);
        refuseOtherKind(kindOf(old.bytes), kindOf(content));
        replaceFile(old, content, verify);
        return;
    }
    if (errno != ENOENT) raiseLast(JetError::CannotOpen, "it cannot be created");
    Successor successor{file, 0666};
    verify(successor.fill(content));
    successor.takeFreePlace();
}

} // namespace servopanel::jet

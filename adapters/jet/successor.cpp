#include "jet/successor.h"

#include "jet/system_failure.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <unistd.h>
#include <vector>

namespace servopanel::jet {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view ending = ".new";

std::string beginningFor(const fs::path& file) { return "." + file.filename().string() + "."; }

bool isSuccessorName(std::string_view name, std::string_view beginning)
{
    if (name.size() <= beginning.size() + ending.size() || name.substr(0, beginning.size()) != beginning
        || name.substr(name.size() - ending.size()) != ending)
        return false;
    name = name.substr(beginning.size(), name.size() - beginning.size() - ending.size());
    return name.find_first_not_of("0123456789-") == std::string_view::npos;
}

void removeUnlessInUse(const fs::path& path)
{
    const OpenFile left{path, O_RDONLY | O_NOFOLLOW};
    struct stat status { };
    if (!left.isOpen() || ::fstat(left.descriptor(), &status) != 0 || !S_ISREG(status.st_mode)) return;
    if (::flock(left.descriptor(), LOCK_EX | LOCK_NB) == 0) ::unlink(path.c_str());
}

// What killed programs have left of this file.
void removeLeftBehind(const fs::path& file)
{
    const std::string beginning = beginningFor(file);
    std::vector<fs::path> found;
    std::error_code code;
    for (fs::directory_iterator entry{file.parent_path(), code}; !code && entry != fs::directory_iterator{};
         entry.increment(code))
        if (isSuccessorName(entry->path().filename().string(), beginning)) found.push_back(entry->path());
    std::for_each(found.begin(), found.end(), removeUnlessInUse);
}

// Locks a new file. False when another process took it for one left behind before it was locked.
bool keep(const OpenFile& file)
{
    // Some network disks have no locks; nothing is ever taken for left behind there.
    if (::flock(file.descriptor(), LOCK_EX | LOCK_NB) != 0) return errno != EWOULDBLOCK;
    struct stat status { };
    return ::fstat(file.descriptor(), &status) == 0 && status.st_nlink != 0;
}

} // namespace

Successor::Successor(const fs::path& file, mode_t permissions)
    : target_{file}
{
    removeLeftBehind(file);
    constexpr int mostAttempts = 1000;
    for (int i = 0; i < mostAttempts; ++i) {
        path_ = file.parent_path()
            / (beginningFor(file) + std::to_string(::getpid()) + "-" + std::to_string(i)
                + std::string{ending});
        file_.open(path_, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, permissions);
        if (!file_.isOpen() && errno != EEXIST)
            raiseLast(JetError::CannotUpdate, "nothing can be written to its folder");
        if (file_.isOpen() && keep(file_)) return;
    }
    raise(JetError::CannotUpdate, "its folder is full of files of killed programs");
}

Successor::~Successor()
{
    if (!placed_) ::unlink(path_.c_str());
}

void Successor::resemble(const struct stat& old) const
{
    struct stat own { };
    if (::fstat(file_.descriptor(), &own) != 0) raiseLast(JetError::CannotUpdate, "it cannot be replaced");
    const bool sameOwner = own.st_uid == old.st_uid && own.st_gid == old.st_gid;
    if (!sameOwner && ::fchown(file_.descriptor(), old.st_uid, old.st_gid) != 0)
        raiseLast(JetError::ReadOnly, "a changed file could not have the same owner");
    if (::fchmod(file_.descriptor(), old.st_mode & 07777U) != 0)
        raiseLast(JetError::CannotUpdate, "a changed file could not have the same permissions");
}

Bytes Successor::fill(ByteView content)
{
    if (!file_.write(content) || ::fsync(file_.descriptor()) != 0)
        raiseLast(JetError::CannotUpdate, "it cannot be written");
    OpenFile again{path_, O_RDONLY};
    Bytes read;
    if (!again.isOpen() || !again.read(read, content.size() + 1))
        raiseLast(JetError::CannotUpdate, "what was written cannot be read");
    if (!std::equal(read.begin(), read.end(), content.begin(), content.end()))
        raise(JetError::CannotUpdate, "what was written does not come back from the disk");
    return read;
}

void Successor::takePlace()
{
    if (::rename(path_.c_str(), target_.c_str()) != 0)
        raiseLast(JetError::CannotUpdate, "it cannot be replaced");
    placed();
}

void Successor::takeFreePlace()
{
    const bool isPlaced =
        ::renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target_.c_str(), RENAME_NOREPLACE) == 0;
    if (!isPlaced && errno == EEXIST) raise(JetError::AlreadyExists, "it exists already");
    // Disks that cannot do this at once can make a second name for a file, which never replaces anything either.
    if (!isPlaced && ::link(path_.c_str(), target_.c_str()) != 0) {
        if (errno == EEXIST) raise(JetError::AlreadyExists, "it exists already");
        raiseLast(JetError::CannotUpdate, "it cannot be created");
    }
    if (!isPlaced) ::unlink(path_.c_str());
    placed();
}

void Successor::placed()
{
    placed_ = true;
    // The new file is in its place. When this fails a power cut may bring the old one back, never a mixture.
    const OpenFile folder{target_.parent_path(), O_RDONLY | O_DIRECTORY};
    if (folder.isOpen()) ::fsync(folder.descriptor());
}

} // namespace servopanel::jet

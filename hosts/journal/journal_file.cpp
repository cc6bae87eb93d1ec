#include "journal/journal_file.h"

#include "journal/entry.h"
#include "portable/file_error.h"

#include <cerrno>
#include <fcntl.h>
#include <numeric>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace servopanel::journal {

namespace {

namespace fs = std::filesystem;

constexpr mode_t mode = 0644; // whoever looks after the line may read it

std::string problemOf(const fs::path& file, std::string_view reason)
{
    return portable::fileError(portable::FileError::AccessError, file.string(), reason).description;
}

// What has just failed, from errno.
std::string failed(const fs::path& file)
{
    return problemOf(file, portable::reasonText({errno, std::generic_category()}));
}

portable::Descriptor opened(const fs::path& file, int flags)
{
    // Not blocking: a pipe put in the place of the file must not stop the panel.
    return portable::Descriptor{::open(file.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode)};
}

// A new name in a folder is on the disk only when the folder is.
bool keepNames(const fs::path& folder)
{
    const portable::Descriptor descriptor = opened(folder, O_RDONLY | O_DIRECTORY);
    return descriptor.isOpen() && ::fsync(descriptor.number()) == 0;
}

} // namespace

fs::path journalFile(const fs::path& folder, int number)
{
    return folder / (number == 0 ? "journal" : "journal." + std::to_string(number));
}

std::string JournalFile::append(const std::vector<std::string>& lines)
{
    hold(lines);
    std::string trouble = open();
    if (file_.isOpen() && trouble.empty()) trouble = putAside();
    if (!file_.isOpen()) return trouble;
    // A file that could not be put aside is too long, and better than none.
    if (std::string worse = writeHeld(); !worse.empty()) return worse;
    if (::fdatasync(file_.number()) != 0) return failed(present());
    return trouble;
}

// Somebody may have moved the file away, or the folder with it: what is written there nobody would find.
bool JournalFile::isInPlace() const
{
    struct stat ours { };
    struct stat there { };
    return file_.isOpen() && ::fstat(file_.number(), &ours) == 0 && ::stat(present().c_str(), &there) == 0
        && ours.st_dev == there.st_dev && ours.st_ino == there.st_ino;
}

std::string JournalFile::open()
{
    if (isInPlace()) return {};
    file_ = {};
    lock_ = {};
    std::error_code code;
    if (!fs::is_directory(settings_.folder, code))
        return problemOf(settings_.folder, code ? portable::reasonText(code) : "it is no folder");
    const fs::path lock = settings_.folder / "journal.lock";
    lock_ = opened(lock, O_RDWR | O_CREAT);
    if (!lock_.isOpen()) return failed(lock);
    // Some network disks have no locks; then the panel's own folder has to do.
    if (::flock(lock_.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        lock_ = {};
        return problemOf(present(), "another program is writing this journal");
    }
    return openPresent();
}

std::string JournalFile::openPresent()
{
    file_ = opened(present(), O_RDWR | O_APPEND | O_CREAT);
    struct stat status { };
    if (!file_.isOpen() || ::fstat(file_.number(), &status) != 0) return failed(present());
    if (!S_ISREG(status.st_mode)) {
        file_ = {};
        return problemOf(present(), "it is no ordinary file");
    }
    size_ = status.st_size;
    char last = '\n';
    if (size_ > 0 && ::pread(file_.number(), &last, 1, size_ - 1) != 1) {
        std::string trouble = failed(present());
        file_ = {};
        return trouble;
    }
    isTorn_ = last != '\n';
    return keepNames(settings_.folder) ? std::string{} : failed(settings_.folder);
}

// Before lines that would make the file too large.
std::string JournalFile::putAside()
{
    const auto more = std::accumulate(
        waiting_.begin(), waiting_.end(), std::int64_t{0}, [](std::int64_t sum, const std::string& line) {
            return sum + static_cast<std::int64_t>(line.size());
        });
    if (size_ == 0 || size_ + more <= settings_.largest) return {};
    for (int number = settings_.kept; number > 0; --number) {
        const fs::path from = journalFile(settings_.folder, number - 1);
        std::error_code code;
        fs::rename(from, journalFile(settings_.folder, number), code);
        if (code && code != std::errc::no_such_file_or_directory)
            return problemOf(from, portable::reasonText(code));
    }
    return openPresent();
}

void JournalFile::hold(const std::vector<std::string>& lines)
{
    for (const std::string& line : lines)
        waiting_.push_back(line + '\n');
    while (waiting_.size() > settings_.mostWaiting) {
        waiting_.pop_front();
        ++lost_;
    }
}

std::string JournalFile::writeHeld()
{
    if (lost_ > 0) {
        if (std::string trouble = write(lineOf(Gap{lost_}) + '\n'); !trouble.empty()) return trouble;
        lost_ = 0;
    }
    while (!waiting_.empty()) {
        if (std::string trouble = write(waiting_.front()); !trouble.empty()) return trouble;
        waiting_.pop_front();
    }
    return {};
}

// In one go, so that a power cut tears one line at most.
std::string JournalFile::write(const std::string& line)
{
    const std::string& bytes = isTorn_ ? std::string{'\n'} + line : line;
    ssize_t written = 0;
    do
        written = ::write(file_.number(), bytes.data(), bytes.size());
    while (written < 0 && errno == EINTR);
    if (written == static_cast<ssize_t>(bytes.size())) {
        size_ += written;
        isTorn_ = false;
        return {};
    }
    if (written < 0) return failed(present());
    // The disk has become full in the middle of a line.
    if (::ftruncate(file_.number(), size_) != 0) {
        size_ += written;
        isTorn_ = true;
    }
    errno = ENOSPC;
    return failed(present());
}

} // namespace servopanel::journal

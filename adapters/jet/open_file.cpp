#include "jet/open_file.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace servopanel::jet {

namespace {

std::int64_t nanoseconds(const struct timespec& time)
{
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

} // namespace

void OpenFile::open(const std::filesystem::path& path, int flags, mode_t mode)
{
    close();
    descriptor_ = ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode);
}

void OpenFile::close()
{
    if (descriptor_ >= 0) ::close(descriptor_);
    descriptor_ = -1;
}

bool OpenFile::write(ByteView content)
{
    while (!content.empty()) {
        const ssize_t written = ::write(descriptor_, content.data(), content.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        content = content.subspan(static_cast<std::size_t>(written));
    }
    return true;
}

bool OpenFile::read(Bytes& content, std::size_t size)
{
    content.resize(size);
    std::size_t done = 0;
    while (done < size) {
        const ssize_t got = ::read(descriptor_, content.data() + done, size - done);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return false;
        if (got == 0) break;
        done += static_cast<std::size_t>(got);
    }
    content.resize(done);
    return true;
}

FileIdentity identityOf(const struct stat& status)
{
    return {status.st_dev, status.st_ino, status.st_size, nanoseconds(status.st_mtim),
        nanoseconds(status.st_ctim)};
}

} // namespace servopanel::jet

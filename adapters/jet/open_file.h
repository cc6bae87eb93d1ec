#pragma once

#include "jet/bytes.h"
#include "jet/disk_file.h"

#include <filesystem>
#include <sys/types.h>

namespace servopanel::jet {

// A file descriptor that is closed at the end.
class OpenFile {
public:
    OpenFile() = default;
    // Opens without waiting, also when it is a pipe. Not open afterwards when that fails; errno tells why.
    explicit OpenFile(const std::filesystem::path& path, int flags, mode_t mode = 0)
    {
        open(path, flags, mode);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() { close(); }

    // The same for another file; the one before is closed.
    void open(const std::filesystem::path& path, int flags, mode_t mode = 0);
    bool isOpen() const { return descriptor_ >= 0; }
    int descriptor() const { return descriptor_; }
    void close();

    // What fails says why in errno.
    bool write(ByteView content);
    bool read(Bytes& content, std::size_t size);

private:
    int descriptor_ = -1;
};

FileIdentity identityOf(const struct stat& status);

} // namespace servopanel::jet

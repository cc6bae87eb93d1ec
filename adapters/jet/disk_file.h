#pragma once

#include "jet/bytes.h"

#include <filesystem>
#include <functional>
#include <sys/stat.h>

namespace servopanel::jet {

// Tells whether a file is still the one that was read, with the same content.
struct FileIdentity {
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    std::int64_t modified = 0; // nanoseconds
    std::int64_t changed = 0; // nanoseconds
    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

struct DiskFile {
    std::filesystem::path path; // without symbolic links
    FileIdentity identity;
    Bytes bytes;
};

// Reads a whole file. Errors: FileNotFound, CannotOpen.
DiskFile readFile(const std::filesystem::path& path);

// Gives a file new content, or leaves it as it is: whatever happens meanwhile, the file is the old or the new one. The
// content goes into a file beside it, which is read again from the disk and then takes its place. Owner and permissions
// stay. verify may raise an error about the content that came back; then nothing changes.
// Errors: ReadOnly for folders and files that may not be written, FileInUse while another program has the database open
// or changes it, RowChanged when the file is not the one that was read, DiskFull, CannotUpdate.
void replaceFile(const DiskFile& file, ByteView content, const std::function<void(const Bytes&)>& verify);

// Makes a new file in the same manner. Error AlreadyExists when there is one and it may not be replaced.
void createFile(const std::filesystem::path& path, ByteView content, bool mayReplace);

} // namespace servopanel::jet

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

// Looks at content that has come back from the disk, and raises an error when it is not what was meant. Then nothing
// changes.
using Verify = std::function<void(const Bytes&)>;

// Gives a file new content, or leaves it as it is: whatever happens meanwhile, the file is the old or the new one. The
// content goes into a file beside it, which is read again from the disk and then takes its place. Owner and permissions
// stay.
// Errors: ReadOnly for folders and files that may not be written, FileInUse while another program has the database open
// or changes it, RowChanged when the file is not the one that was read, DiskFull, CannotUpdate.
void replaceFile(const DiskFile& file, ByteView content, const Verify& verify);

// Makes a new file in the same manner, where a symbolic link leads to as well. One that exists is replaced when it may
// be, as by replaceFile. Error AlreadyExists when it may not, and when it is no file of the kind of the content: a
// database is never put over a text, nor a text over a database.
void createFile(const std::filesystem::path& path, ByteView content, bool mayReplace, const Verify& verify);

} // namespace servopanel::jet

#pragma once

#include "platform/files.h"
#include "portable/path_mapping.h"

namespace servopanel::portable {

// Text files and folders on the disk. All error texts name the file. Error 53: no such file; 76: its folder is missing
// or the name is refused; 75: it is there but cannot be used (no permission, no ordinary file, too large, disk full).
class PortableFiles : public platform::Files {
public:
    // The mapping lives as long as this.
    explicit PortableFiles(const PathMapping& mapping)
        : mapping_{mapping}
    {
    }

    // Reads the whole file at once, 20 MB at most. A failure in the middle keeps the lines before it.
    platform::TextFile openText(std::string_view path) override;
    void closeText() override { }
    // Writes UTF-8. The old content stays until the new one is completely on the disk.
    void writeText(std::string_view path, std::string_view text) override;
    bool exists(std::string_view path) override;
    void createFolder(std::string_view path) override;

private:
    const PathMapping& mapping_;
};

} // namespace servopanel::portable

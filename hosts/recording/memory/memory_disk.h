#pragma once

#include "platform/files.h"
#include "platform/profile.h"
#include "recording/memory/project.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::recording {

// One spelling for all spellings of a path: upper case, backslashes, none at the end.
std::string normalisedPath(std::string_view path);

// Files and folders in memory, by full path without regard to case. Every drive root exists, and a file makes its
// folders exist.
class MemoryDisk : public platform::Files, public platform::Profile {
public:
    void putText(std::string_view path, std::string_view text);
    void putPicture(std::string_view path, PictureSize size);
    // A file that is neither text nor picture, such as a database.
    void putOther(std::string_view path);
    void putFolder(std::string_view path);
    // Its folder stays.
    void remove(std::string_view path) { files_.erase(normalisedPath(path)); }

    PictureSize loadPicture(std::string_view path) const;
    void savePicture(std::string_view path, PictureSize size);

    platform::TextFile openText(std::string_view path) override;
    void closeText() override { }
    void writeText(std::string_view path, std::string_view text) override;
    bool exists(std::string_view path) override;
    void createFolder(std::string_view path) override;

    std::optional<std::string> text(
        std::string_view file, std::string_view section, std::string_view entry) override;

private:
    struct File {
        std::optional<std::string> text;
        std::optional<PictureSize> picture;
    };

    void putFile(std::string_view path, File file);
    const File* find(std::string_view path) const;
    const File& require(std::string_view path) const;
    bool folderExists(const std::string& normalised) const;
    void requireParent(std::string_view path) const;

    std::map<std::string, File> files_;
    std::set<std::string> folders_;
};

} // namespace servopanel::recording

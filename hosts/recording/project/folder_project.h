#pragma once

#include "portable/path_mapping.h"
#include "portable/portable_files.h"
#include "portable/portable_profile.h"
#include "recording/memory/failures.h"
#include "recording/memory/memory_disk.h"
#include "recording/memory/project.h"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::recording {

// A project folder on the disk. A replay only reads it: what the library writes, and everything in the temporary
// folder, stays in memory, so that every replay starts from the same state and no panel finds its pictures.
class FolderProject : public Project, private platform::Files, private platform::Profile {
public:
    // Error 76 when there is no such folder.
    FolderProject(const std::filesystem::path& folder, Failures& failures);

    std::string fullName(std::string_view name) const override { return mapping_.fullName(name); }
    platform::Files& files() override { return *this; }
    platform::Profile& profile() override { return *this; }
    std::shared_ptr<platform::DBEngine> database() override { return engine_; }
    PictureSize loadPicture(std::string_view path) override;
    void savePicture(std::string_view path, PictureSize size) override;

private:
    platform::TextFile openText(std::string_view path) override;
    void closeText() override { }
    void writeText(std::string_view path, std::string_view text) override;
    bool exists(std::string_view path) override;
    void createFolder(std::string_view path) override;
    std::optional<std::string> text(
        std::string_view file, std::string_view section, std::string_view entry) override;

    bool isInside(std::string_view path) const;

    portable::PathMapping mapping_;
    portable::PortableFiles files_{mapping_};
    portable::PortableProfile profile_{mapping_};
    std::string folder_; // normalised
    MemoryDisk written_;
    std::shared_ptr<platform::DBEngine> engine_;
};

} // namespace servopanel::recording

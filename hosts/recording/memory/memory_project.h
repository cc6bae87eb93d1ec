#pragma once

#include "recording/memory/memory_database.h"
#include "recording/memory/memory_disk.h"
#include "recording/memory/project.h"

namespace servopanel::recording {

// A project that a scenario describes line by line.
class MemoryProject : public Project {
public:
    static constexpr std::string_view folder = "C:\\Projekt\\";

    explicit MemoryProject(Failures& failures)
        : databases_{failures}
    {
    }

    std::string fullName(std::string_view name) const override;
    platform::Files& files() override { return disk_; }
    platform::Profile& profile() override { return disk_; }
    std::shared_ptr<platform::DBEngine> database() override;
    PictureSize loadPicture(std::string_view path) override { return disk_.loadPicture(path); }
    void savePicture(std::string_view path, PictureSize size) override { disk_.savePicture(path, size); }

    // name: project-relative or absolute.
    void putText(std::string_view name, std::string_view text);
    void putPicture(std::string_view name, PictureSize size);
    void putDatabase(std::string_view name);
    void putRow(std::string_view name, DefinitionRow row);
    // A file, picture or database is there no more.
    void lose(std::string_view name);
    bool removeRow(std::string_view name, std::string_view variable, const basic::Variant& element);

private:
    MemoryDisk disk_;
    MemoryDatabases databases_;
};

// Whether a name has a drive or begins at a root.
bool isAbsoluteName(std::string_view name);

} // namespace servopanel::recording

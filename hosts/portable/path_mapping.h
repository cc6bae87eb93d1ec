#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::portable {

// Where the files are that the library names: with backslashes, drive letters and any letter case.
//
// A name belongs to the project folder or to a folder that was mapped, and so must the file it leads to after all
// symbolic links. Every other name is refused with error 76, whether it is absolute, climbs out by ".." or leaves
// through a link. Components are found without regard to case, the exact name first; what does not exist yet keeps the
// letter case of the name. Nothing is cached, so files may come and go.
class PathMapping {
public:
    // Maps C:\Temp to the system's temporary folder. Error 76 when there is no such project folder.
    explicit PathMapping(const std::filesystem::path& projectFolder);

    // Names at or below name ("D:", "C:\Temp", "/data/temp") lead to this folder; the longest such name counts, and a
    // repeated one replaces the former folder. Error 76 when the folder does not exist.
    void mapFolder(std::string_view name, const std::filesystem::path& folder);

    // Lets the value of the environment variable TEMPVELM name a temporary folder: one of this system is used as it is,
    // and made where it is missing; a drive name that leads nowhere yet becomes the system's temporary folder. Any other
    // text, such as a relative name, does nothing.
    void mapTemporaryFolder(std::string_view name);

    // The full name of a project-relative name, with backslashes: the project's own place, so that a message tells
    // the operator where to look. Absolute names stay as they are. Nothing is looked up.
    std::string fullName(std::string_view name) const;

    // The file or folder of a full or project-relative name, or where it would be created. Error 76 when the name is
    // refused; a missing parent is no error here.
    std::filesystem::path resolve(std::string_view name) const;

    // The same for what must exist; nothing when it does not or when the name is refused.
    std::optional<std::filesystem::path> find(std::string_view name) const;

    const std::filesystem::path& projectFolder() const { return project_; }

private:
    struct Mapped {
        std::vector<std::string> name; // components, the drive first; a name of this system begins with ""
        std::filesystem::path folder; // without symbolic links
    };

    const Mapped* mappedFor(const std::vector<std::string>& components) const;
    bool permits(const std::filesystem::path& place) const;

    std::filesystem::path project_; // absolute, as given
    std::filesystem::path realProject_; // without symbolic links
    std::vector<Mapped> mapped_;
};

} // namespace servopanel::portable

#include "recording/project/folder_project.h"

#include "jet/jet_engine.h"
#include "portable/text_reading.h"
#include "recording/project/picture_size.h"
#include "recording/project/project_engine.h"

#include <cstdint>
#include <optional>

namespace servopanel::recording {

namespace {

constexpr std::int32_t invalidPicture = 481;
constexpr std::uintmax_t largestPicture = 100'000'000; // bytes

} // namespace

FolderProject::FolderProject(const std::filesystem::path& folder, Failures& failures)
    : mapping_{folder}
    , engine_{std::make_shared<ProjectEngine>(std::make_shared<jet::JetEngine>(mapping_), failures)}
{
    constexpr std::string_view anyName = "x";
    const std::string file = mapping_.fullName(anyName);
    folder_ = normalisedPath(std::string_view{file}.substr(0, file.size() - anyName.size()));
    // Every panel has it, and the library makes its own folder in there.
    written_.putFolder("C:\\Temp");
}

bool FolderProject::isInside(std::string_view path) const
{
    const std::string place = normalisedPath(path);
    return place == folder_ || place.compare(0, folder_.size() + 1, folder_ + "\\") == 0;
}

PictureSize FolderProject::loadPicture(std::string_view path)
{
    if (written_.exists(path) || !isInside(path)) return written_.loadPicture(path);
    const std::optional<std::filesystem::path> file = mapping_.find(path);
    if (!file) raiseError(53, "File not found: " + std::string{path});
    const portable::FileBytes content = portable::readFile(*file, path, largestPicture);
    const std::optional<PictureSize> size = pictureSize(content.bytes);
    if (!size) raiseError(invalidPicture, "Invalid picture: " + std::string{path});
    return *size;
}

void FolderProject::savePicture(std::string_view path, PictureSize size)
{
    if (isInside(path))
        written_.putPicture(path, size);
    else
        written_.savePicture(path, size);
}

platform::TextFile FolderProject::openText(std::string_view path)
{
    return written_.exists(path) || !isInside(path) ? written_.openText(path) : files_.openText(path);
}

void FolderProject::writeText(std::string_view path, std::string_view text)
{
    if (isInside(path))
        written_.putText(path, text);
    else
        written_.writeText(path, text);
}

bool FolderProject::exists(std::string_view path)
{
    return written_.exists(path) || (isInside(path) && files_.exists(path));
}

void FolderProject::createFolder(std::string_view path)
{
    if (isInside(path) && !exists(path))
        written_.putFolder(path);
    else
        written_.createFolder(path);
}

std::optional<std::string> FolderProject::text(
    std::string_view file, std::string_view section, std::string_view entry)
{
    if (written_.exists(file) || !isInside(file)) return written_.text(file, section, entry);
    return profile_.text(file, section, entry);
}

} // namespace servopanel::recording

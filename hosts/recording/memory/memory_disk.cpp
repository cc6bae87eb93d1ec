#include "recording/memory/memory_disk.h"

#include "basic/error.h"
#include "basic/text.h"
#include "portable/profile_text.h"
#include "recording/memory/failures.h"

#include <utility>

namespace servopanel::recording {

namespace {

constexpr std::int32_t pathFileAccess = 75;
constexpr std::int32_t invalidPicture = 481;

std::string parentOf(const std::string& normalised)
{
    const std::size_t slash = normalised.rfind('\\');
    return slash == std::string::npos ? std::string{} : normalised.substr(0, slash);
}

bool isDriveRoot(std::string_view normalised) { return normalised.size() == 2 && normalised[1] == ':'; }

std::string named(std::string_view text, std::string_view path)
{
    return std::string{text} + ": " + std::string{path};
}

} // namespace

std::string normalisedPath(std::string_view path)
{
    std::string result = basic::upperCase(path);
    for (char& sign : result)
        if (sign == '/') sign = '\\';
    while (!result.empty() && result.back() == '\\')
        result.pop_back();
    return result;
}

void MemoryDisk::putFile(std::string_view path, File file)
{
    const std::string place = normalisedPath(path);
    files_.insert_or_assign(place, std::move(file));
    putFolder(parentOf(place));
}

void MemoryDisk::putFolder(std::string_view path)
{
    for (std::string folder = normalisedPath(path); !folder.empty(); folder = parentOf(folder))
        folders_.insert(folder);
}

void MemoryDisk::putText(std::string_view path, std::string_view text)
{
    putFile(path, {std::string{text}, std::nullopt});
}

void MemoryDisk::putPicture(std::string_view path, PictureSize size) { putFile(path, {std::nullopt, size}); }

void MemoryDisk::putOther(std::string_view path) { putFile(path, {std::nullopt, std::nullopt}); }

const MemoryDisk::File* MemoryDisk::find(std::string_view path) const
{
    const auto file = files_.find(normalisedPath(path));
    return file == files_.end() ? nullptr : &file->second;
}

bool MemoryDisk::folderExists(const std::string& normalised) const
{
    return isDriveRoot(normalised) || folders_.count(normalised) > 0;
}

void MemoryDisk::requireParent(std::string_view path) const
{
    if (!folderExists(parentOf(normalisedPath(path)))) raiseError(76, named("Path not found", path));
}

const MemoryDisk::File& MemoryDisk::require(std::string_view path) const
{
    const File* file = find(path);
    if (file == nullptr) {
        requireParent(path);
        raiseError(53, named("File not found", path));
    }
    return *file;
}

PictureSize MemoryDisk::loadPicture(std::string_view path) const
{
    const File* file = find(path);
    if (file == nullptr) raiseError(53, named("File not found", path));
    if (!file->picture) raiseError(invalidPicture, named("Invalid picture", path));
    return *file->picture;
}

void MemoryDisk::savePicture(std::string_view path, PictureSize size)
{
    requireParent(path);
    putPicture(path, size);
}

platform::TextFile MemoryDisk::openText(std::string_view path)
{
    const File& file = require(path);
    if (!file.text) raiseError(pathFileAccess, named("No text file", path));
    return {*file.text, std::nullopt};
}

void MemoryDisk::writeText(std::string_view path, std::string_view text)
{
    requireParent(path);
    putText(path, text);
}

bool MemoryDisk::exists(std::string_view path)
{
    return find(path) != nullptr || folderExists(normalisedPath(path));
}

void MemoryDisk::createFolder(std::string_view path)
{
    if (exists(path)) raiseError(pathFileAccess, named("Path/File access error", path));
    requireParent(path);
    folders_.insert(normalisedPath(path));
}

std::optional<std::string> MemoryDisk::text(
    std::string_view file, std::string_view section, std::string_view entry)
{
    const File* found = find(file);
    if (found == nullptr || !found->text) return std::nullopt;
    return portable::profileLookUp(*found->text, section, entry);
}

} // namespace servopanel::recording

#include "portable/path_mapping.h"

#include "basic/text.h"
#include "portable/file_error.h"
#include "portable/text_decoding.h"

#include <algorithm>
#include <system_error>

namespace servopanel::portable {

namespace fs = std::filesystem;

namespace {

using Components = std::vector<std::string>;

bool isSeparator(char sign) { return sign == '\\' || sign == '/'; }

bool isDriveLetter(char sign) { return (sign >= 'A' && sign <= 'Z') || (sign >= 'a' && sign <= 'z'); }

bool isDriveName(std::string_view name)
{
    return name.size() >= 2 && isDriveLetter(name[0]) && name[1] == ':';
}

bool isAbsolute(std::string_view name)
{
    return isDriveName(name) || (!name.empty() && isSeparator(name[0]));
}

[[noreturn]] void refuse(std::string_view name, std::string_view reason)
{
    raiseFileError(FileError::PathNotFound, name, reason);
}

// The parts of a name without "." and "..". The first part of an absolute name is its drive ("C:"), or "" for a name of
// this system.
Components split(std::string_view name)
{
    Components components;
    std::string_view rest = name;
    if (isDriveName(name)) {
        if (name.size() > 2 && !isSeparator(name[2])) refuse(name, "a path must follow the drive");
        components.push_back(basic::upperCase(name.substr(0, 2)));
        rest.remove_prefix(2);
    } else if (isAbsolute(name)) {
        if (name.size() > 1 && isSeparator(name[1]))
            refuse(name, "names of other computers are not supported");
        components.emplace_back();
    }
    const std::size_t root = components.size();

    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find_first_of("\\/"), rest.size());
        const std::string_view part = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (part.empty() || part == ".") continue;
        if (part == "..") {
            if (components.size() == root)
                refuse(name, "the name leads out of the folders that the panel may use");
            components.pop_back();
            continue;
        }
        const bool strange = std::any_of(part.begin(), part.end(),
            [](char sign) { return sign == ':' || static_cast<unsigned char>(sign) < 0x20U; });
        if (strange) refuse(name, "the name has a character that is not allowed");
        components.emplace_back(part);
    }
    return components;
}

std::string folded(std::string_view name)
{
    return basic::upperCase(isUtf8(name) ? std::string{name} : fromWindows1252(name));
}

// Drive names come from engineers and know no letter case, those of this system do.
bool beginsWith(const Components& name, const Components& start)
{
    if (start.size() > name.size()) return false;
    const bool anyCase = !start.empty() && !start.front().empty();
    return std::equal(start.begin(), start.end(), name.begin(),
        [anyCase](const auto& a, const auto& b) { return a == b || (anyCase && folded(a) == folded(b)); });
}

bool liesIn(const fs::path& place, const fs::path& folder)
{
    return std::mismatch(folder.begin(), folder.end(), place.begin(), place.end()).first == folder.end();
}

// The entry of a folder by its exact name, else by its name without regard to case; of several the first by bytes.
std::optional<fs::path> entryOf(const fs::path& folder, const std::string& name)
{
    std::error_code code;
    const fs::path exact = folder / name;
    if (fs::exists(fs::symlink_status(exact, code))) return exact;

    const std::string wanted = folded(name);
    std::optional<fs::path> found;
    for (fs::directory_iterator entry{folder, code}, end; !code && entry != end; entry.increment(code)) {
        const fs::path& candidate = entry->path();
        if (folded(candidate.filename().string()) != wanted) continue;
        if (!found || candidate.native() < found->native()) found = candidate;
    }
    return found;
}

fs::path realFolder(const fs::path& folder)
{
    std::error_code code;
    fs::path real = fs::canonical(folder, code);
    if (!code && !fs::is_directory(real, code) && !code)
        code = std::make_error_code(std::errc::not_a_directory);
    if (code) refuse(folder.string(), reasonText(code));
    return real;
}

std::string withBackslashes(std::string_view name)
{
    std::string text{name};
    std::replace(text.begin(), text.end(), '/', '\\');
    return text;
}

} // namespace

PathMapping::PathMapping(const fs::path& projectFolder)
    : realProject_{realFolder(projectFolder)}
{
    project_ = fs::absolute(projectFolder).lexically_normal();
    if (!project_.has_filename()) project_ = project_.parent_path();

    mapFolder(project_.string(), project_);
    mapFolder(realProject_.string(), realProject_);
    std::error_code code;
    const fs::path temporary = fs::temp_directory_path(code);
    if (code) return;
    mapFolder(temporary.string(), temporary);
    mapFolder("C:\\Temp", temporary);
}

void PathMapping::mapFolder(std::string_view name, const fs::path& folder)
{
    if (!isAbsolute(name)) refuse(name, "only absolute names can be mapped");
    Mapped mapped{split(name), realFolder(folder)};
    const auto same = std::find_if(mapped_.begin(), mapped_.end(), [&](const Mapped& old) {
        return old.name.size() == mapped.name.size() && beginsWith(mapped.name, old.name);
    });
    if (same != mapped_.end())
        *same = std::move(mapped);
    else
        mapped_.push_back(std::move(mapped));
}

void PathMapping::mapTemporaryFolder(std::string_view name)
try {
    if (!isAbsolute(name)) return;
    const Components components = split(name);
    std::error_code code;
    if (isDriveName(name)) {
        const fs::path temporary = fs::temp_directory_path(code);
        if (!code && mappedFor(components) == nullptr) mapFolder(name, temporary);
        return;
    }
    // The whole disk is nobody's temporary folder.
    if (components.size() < 2) return;
    std::string place{name};
    std::replace(place.begin(), place.end(), '\\', '/');
    // Where it cannot be made, each picture that does not come into being is reported.
    fs::create_directories(place, code);
    if (fs::is_directory(place, code)) mapFolder(name, place);
} catch (const basic::Error&) {
    // A value that is no usable name maps nothing; the files below it will be refused with their names.
}

std::string PathMapping::fullName(std::string_view name) const
{
    if (isAbsolute(name)) return std::string{name};
    std::string project = withBackslashes(project_.string());
    if (name.empty()) return project;
    return project + (project.back() == '\\' ? "" : "\\") + withBackslashes(name);
}

fs::path PathMapping::resolve(std::string_view name) const
{
    const Components components = split(name);
    const bool relative = !isAbsolute(name);
    const Mapped* const mapped = relative ? nullptr : mappedFor(components);
    if (!relative && mapped == nullptr)
        refuse(name, "the name lies outside the folders that the panel may use");

    fs::path place = relative ? realProject_ : mapped->folder;
    std::size_t next = relative ? 0 : mapped->name.size();
    for (; next < components.size(); ++next) {
        const std::optional<fs::path> entry = entryOf(place, components[next]);
        if (!entry) break;
        std::error_code code;
        const bool link = fs::is_symlink(fs::symlink_status(*entry, code));
        place = link ? fs::canonical(*entry, code) : *entry;
        if (code) refuse(name, "a symbolic link on the way leads nowhere");
        if (link && !permits(place))
            refuse(name, "a symbolic link leads out of the folders that the panel may use");
    }
    for (; next < components.size(); ++next)
        place /= components[next];
    return place;
}

std::optional<fs::path> PathMapping::find(std::string_view name) const
{
    try {
        fs::path place = resolve(name);
        std::error_code code;
        if (fs::exists(place, code)) return place;
    } catch (const basic::Error&) {
        // A refused name is as good as missing to whoever asks only whether it is there.
    }
    return std::nullopt;
}

const PathMapping::Mapped* PathMapping::mappedFor(const Components& components) const
{
    const Mapped* longest = nullptr;
    for (const Mapped& mapped : mapped_)
        if (beginsWith(components, mapped.name) && (!longest || mapped.name.size() > longest->name.size()))
            longest = &mapped;
    return longest;
}

bool PathMapping::permits(const fs::path& place) const
{
    return liesIn(place, realProject_)
        || std::any_of(mapped_.begin(), mapped_.end(),
            [&](const Mapped& mapped) { return liesIn(place, mapped.folder); });
}

} // namespace servopanel::portable

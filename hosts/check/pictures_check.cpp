#include "check/pictures_check.h"

#include "basic/text.h"
#include "check/folders.h"
#include "check/ini_files.h"
#include "machine/screen_rows.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <string_view>
#include <system_error>
#include <vector>

namespace servopanel::check {

namespace {

namespace fs = std::filesystem;

// "Servo/Servo_5_*.gif" of "Servo/Servo_5_800.gif": one picture is drawn for every resolution.
std::string forAllResolutions(std::string name, const std::set<int>& resolutions)
{
    for (const int resolution : resolutions) {
        const std::string part = '_' + std::to_string(resolution) + '.';
        const std::size_t at = name.rfind(part);
        if (at != std::string::npos) return name.replace(at + 1, part.size() - 2, "*");
    }
    return name;
}

std::string size(int width, int height) { return std::to_string(width) + " x " + std::to_string(height); }

// A place is rarely a whole number of pixels at the smaller resolutions.
bool fits(const PictureLook& picture, const Places& places)
{
    return places.width == 0
        || (std::abs(picture.width - places.width) <= 1 && std::abs(picture.height - places.height) <= 1);
}

constexpr const char* notShown = ": it is not shown, and the panel says so";
constexpr const char* noneShown = ": its pictures are not shown, and the panel says so";
constexpr const char* plainShown =
    "no such picture, while another resolution has it: the menu's key shows the picture of the page instead";

std::string folderOf(const std::string& name)
{
    const std::size_t end = name.rfind('/');
    return end == std::string::npos ? std::string{} : name.substr(0, end);
}

bool isPictureName(const fs::path& name)
{
    const std::string extension = basic::upperCase(name.extension().string());
    return extension == ".GIF" || extension == ".BMP" || extension == ".WMF" || extension == ".PNG"
        || extension == ".JPG";
}

// The size of a footer key's picture: that of the design, or of the resolution in its name.
void takeFooterSize(const std::string& name, Places& places)
{
    const bool isSmall = name.find("_800.") != std::string::npos;
    const bool isMiddle = name.find("_1024.") != std::string::npos;
    places.width = isSmall ? 60 : isMiddle ? 77 : 96;
    places.height = isSmall ? 37 : isMiddle ? 48 : 64;
}

// What is wrong with a picture, and what it means; "" when nothing is.
std::string mistakeOf(const std::optional<fs::path>& file, const Places& places, const PictureReader& read)
{
    if (!file) return std::string{"no such picture"} + notShown;
    std::error_code code;
    if (!fs::is_regular_file(*file, code)) return std::string{"is no file"} + notShown;
    const PictureLook picture = read(*file);
    if (!picture.mistake.empty()) return picture.mistake + notShown;
    if (!fits(picture, places))
        return "has " + size(picture.width, picture.height) + " pixels, its place has "
            + size(places.width, places.height) + ": it is cut off, or does not fill its place";
    return {};
}

} // namespace

namespace {

// Whether this is a picture of a footer key: behind the beginning stand an access level and a resolution.
bool isOf(const std::string& name, const FooterPicture& picture)
{
    if (!basic::upperCase(name).starts_with(basic::upperCase(picture.beginning))) return false;
    const std::string_view rest = std::string_view{name}.substr(picture.beginning.size());
    return rest.substr(0, rest.find('.')).find_first_not_of("0123456789_") == std::string_view::npos;
}

// Entries for footer keys of which no picture is there at all, in a folder that can be listed: the entry is wrong then.
std::vector<FooterPicture> wrongFooterPictures(const CheckedProject& project, const Asked& asked)
{
    std::vector<FooterPicture> wrong;
    for (const FooterPicture& picture : footerPictures(project)) {
        if (!folderMistake(project, folderOf(picture.beginning)).empty()) continue;
        bool isAsked = false;
        bool isThere = false;
        for (const auto& [name, places] : asked.pictures) {
            if (!isOf(name, picture)) continue;
            isAsked = true;
            isThere = isThere || project.mapping.find(name).has_value();
        }
        if (isAsked && !isThere) wrong.push_back(picture);
    }
    return wrong;
}

// Tells those folders of pictures that nobody can list, once for all that is in them. Their names.
std::set<std::string> closedFolders(const CheckedProject& project, const Asked& asked, Findings& findings)
{
    std::map<std::string, std::string> mistakes; // by folder
    std::set<std::string> closed;
    for (const auto& [name, places] : asked.pictures) {
        const std::string folder = folderOf(name);
        const auto [mistake, isNew] = mistakes.try_emplace(folder);
        if (isNew) mistake->second = folderMistake(project, folder);
        if (mistake->second.empty()) continue;
        closed.insert(folder);
        for (const std::string& view : places.views)
            findings.add({folder, 0, mistake->second + noneShown, {}, view});
    }
    return closed;
}

// Pictures that a project need not have, but has for some of its resolutions.
void checkOptionalPictures(const CheckedProject& project, const Asked& asked, Findings& findings)
{
    std::set<std::string> present; // for one resolution at least, by their names for all
    for (const auto& [name, places] : asked.soughtFiles)
        if (project.mapping.find(name)) present.insert(forAllResolutions(name, project.resolutions));
    for (const auto& [name, places] : asked.soughtFiles) {
        const std::string shown = forAllResolutions(name, project.resolutions);
        if (!present.contains(shown) || project.mapping.find(name)) continue;
        for (const std::string& view : places.views)
            findings.add({shown, 0, plainShown, places.resolutions, view});
    }
}

} // namespace

std::set<int> resolutionsOf(const CheckedProject& project)
{
    std::set<int> result{project.file.resolution};
    for (const char* const folder : {"Servo", "Standard"}) {
        for (const fs::path name : namesIn(project, folder)) {
            const std::string stem = name.stem().string();
            for (const int resolution : machine::resolutions) {
                const std::string part = '_' + std::to_string(resolution);
                if (stem.size() > part.size()
                    && stem.compare(stem.size() - part.size(), part.size(), part) == 0)
                    result.insert(resolution);
            }
        }
    }
    return result;
}

void checkPictures(const CheckedProject& project, Asked& asked, const PictureReader& read, Findings& findings)
{
    const std::set<std::string> closed = closedFolders(project, asked, findings);
    const std::vector<FooterPicture> wrong = wrongFooterPictures(project, asked);
    for (const FooterPicture& picture : wrong)
        findings.add(picture.file, picture.line,
            picture.entry + ", and there is no picture whose name begins so: the key stays without one");
    for (const auto& [name, places] : asked.pictures) {
        const bool isTold = closed.contains(folderOf(name))
            || std::any_of(wrong.begin(), wrong.end(),
                [&name = name](const FooterPicture& picture) { return isOf(name, picture); });
        if (isTold) {
            asked.brokenFiles.insert(name);
            continue;
        }
        Places sized = places;
        if (places.isFooter) takeFooterSize(name, sized);
        const std::string mistake = mistakeOf(project.mapping.find(name), sized, read);
        if (mistake.empty()) continue;
        asked.brokenFiles.insert(name);
        const std::string shown = forAllResolutions(name, project.resolutions);
        for (const std::string& view : places.views)
            findings.add({shown, 0, mistake, shown == name ? std::set<int>{} : places.resolutions, view});
    }
    checkOptionalPictures(project, asked, findings);
}

void checkAllPictures(
    const CheckedProject& project, const Asked& asked, const PictureReader& read, Findings& findings)
{
    for (const char* const folder : {"Servo", "Standard"}) {
        const std::string closed = folderMistake(project, folder);
        if (!closed.empty()) {
            findings.add(folder, 0, closed + noneShown);
            continue;
        }
        std::error_code code;
        for (fs::directory_iterator file{*project.mapping.find(folder), code}, end; !code && file != end;
             file.increment(code)) {
            const std::string leaf = file->path().filename().string();
            const std::string name = folder + ('/' + leaf);
            if (!isPictureName(file->path()) || asked.pictures.contains(name)) continue;
            const std::string mistake = mistakeOf(file->path(), {}, read);
            if (!mistake.empty()) findings.add(name, 0, mistake);
        }
    }
}

} // namespace servopanel::check

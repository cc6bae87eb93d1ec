#include "panel/pictures/picture_cache.h"

#include "basic/error.h"
#include "panel/pictures/picture_file.h"

#include <algorithm>
#include <system_error>

namespace servopanel::panel {

namespace {
constexpr std::size_t mostEntries = 500; // errors and small pictures
}

PictureCache::Entry PictureCache::read(
    const std::filesystem::path& file, const std::string& name, int metafileSide)
{
    std::error_code none; // a file that is gone is the loader's error
    Entry entry{file, std::filesystem::last_write_time(file, none), std::filesystem::file_size(file, none),
        metafileSide, {}, 0, {}};
    ++loads_;
    try {
        entry.image = loadPicture(file, name, metafileSide);
    } catch (const basic::Error& error) {
        entry.error = error.number;
        entry.description = error.description;
    }
    return entry;
}

QImage PictureCache::load(const std::filesystem::path& file, const std::string& name, int metafileSide)
{
    const auto isAsked = [&](const Entry& entry) {
        return entry.file == file && entry.metafileSide == metafileSide;
    };
    auto found = std::find_if(entries_.begin(), entries_.end(), isAsked);
    std::error_code none;
    if (found != entries_.end()
        && (found->changed != std::filesystem::last_write_time(file, none)
            || found->size != std::filesystem::file_size(file, none))) {
        bytes_ -= found->image.sizeInBytes();
        entries_.erase(found);
        found = entries_.end();
    }
    if (found == entries_.end()) {
        entries_.push_front(read(file, name, metafileSide));
        bytes_ += entries_.front().image.sizeInBytes();
    } else {
        entries_.splice(entries_.begin(), entries_, found);
    }
    while (entries_.size() > 1 && (bytes_ > mostBytes_ || entries_.size() > mostEntries)) {
        bytes_ -= entries_.back().image.sizeInBytes();
        entries_.pop_back();
    }
    const Entry& entry = entries_.front();
    if (entry.error != 0) throw basic::Error{entry.error, {}, entry.description};
    return entry.image;
}

} // namespace servopanel::panel

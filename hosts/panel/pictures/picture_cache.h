#pragma once

#include <QImage>

#include <cstdint>
#include <filesystem>
#include <list>
#include <string>

namespace servopanel::panel {

// The pictures that were loaded lately, so that a large one costs its time once. A file that has changed on the disk
// (time or size) is loaded anew. Bounded by what the images take; the newest stays, however large it is. A picture
// that cannot be loaded is remembered too, with its error.
class PictureCache {
public:
    explicit PictureCache(std::int64_t mostBytes = 128'000'000)
        : mostBytes_{mostBytes}
    {
    }

    // As loadPicture, errors included.
    QImage load(const std::filesystem::path& file, const std::string& name, int metafileSide = 0);

    std::int64_t bytes() const { return bytes_; }
    int loads() const { return loads_; } // files that were really read

private:
    struct Entry {
        std::filesystem::path file;
        std::filesystem::file_time_type changed;
        std::uintmax_t size;
        int metafileSide;
        QImage image;
        std::int32_t error; // 0: none
        std::string description;
    };
    Entry read(const std::filesystem::path& file, const std::string& name, int metafileSide);

    std::list<Entry> entries_; // the one asked for last in front
    std::int64_t mostBytes_;
    std::int64_t bytes_ = 0;
    int loads_ = 0;
};

} // namespace servopanel::panel

#pragma once

#include "platform/db_engine.h"
#include "platform/files.h"
#include "platform/pictures.h"
#include "platform/profile.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace servopanel::recording {

// Pixels.
struct PictureSize {
    std::int32_t width = 0;
    std::int32_t height = 0;
};

// A picture without pixels: the recording host knows its size and where it came from.
class MemoryPicture : public platform::Picture {
public:
    MemoryPicture(std::string file, PictureSize size)
        : file_{std::move(file)}
        , size_{size}
    {
    }
    std::string file() const override { return file_; }
    PictureSize size() const { return size_; }

private:
    std::string file_;
    PictureSize size_;
};

// Where files, pictures and the definition database of a replay are.
class Project {
public:
    Project() = default;
    Project(const Project&) = delete;
    Project& operator=(const Project&) = delete;
    virtual ~Project() = default;

    // Full path of a project-relative name; an absolute name stays as it is.
    virtual std::string fullName(std::string_view name) const = 0;
    virtual platform::Files& files() = 0;
    virtual platform::Profile& profile() = 0;
    virtual std::shared_ptr<platform::DBEngine> database() = 0;

    // Error 53 when there is no such file, 481 when it is no picture.
    virtual PictureSize loadPicture(std::string_view path) = 0;
    // Error 76 when the folder is missing.
    virtual void savePicture(std::string_view path, PictureSize size) = 0;
};

} // namespace servopanel::recording

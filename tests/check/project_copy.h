#pragma once

#include "check/check.h"
#include "portable/temporary_folder.h"

#include <filesystem>
#include <string>

namespace servopanel::check::tests {

namespace fs = std::filesystem;

// A copy of the demonstration project, to be broken. What cannot be done to it fails the test.
class ProjectCopy {
public:
    ProjectCopy();

    const fs::path& path() const { return path_; }
    fs::path place(const std::string& file) const { return path_ / file; }
    std::string content(const std::string& file) const;

    void write(const std::string& file, const std::string& content) const;
    void append(const std::string& file, const std::string& text) const;
    // Puts a text in the place of another one that must stand there; without a new one takes its whole line away.
    void replace(const std::string& file, const std::string& from, const std::string& to) const;
    void removeLine(const std::string& file, const std::string& beginning) const;
    void remove(const std::string& file) const;
    // The first half of the file only.
    void cut(const std::string& file) const;
    // The number of the line in which a text stands, counted from 1.
    int line(const std::string& file, const std::string& text) const;

private:
    servopanel::tests::TemporaryFolder folder_;
    fs::path path_;
};

// A reader that knows sizes and nothing else: the panel's own needs Qt.
PictureLook plainReader(const fs::path& file);

} // namespace servopanel::check::tests

#pragma once

#include "portable/descriptor.h"

#include <cstdint>
#include <deque>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace servopanel::journal {

struct JournalFileSettings {
    // Must exist: a disk that is not mounted must not become a folder of another.
    std::filesystem::path folder;
    std::int64_t largest = std::int64_t{8} * 1024 * 1024; // bytes, before the file is put aside
    int kept = 4; // files put aside
    std::size_t mostWaiting = 1000; // lines that are held while the file cannot be written
};

// "journal" for the present one, "journal.1" for the latest that was put aside, and so on.
std::filesystem::path journalFile(const std::filesystem::path& folder, int number);

// Lines at the end of a file that may lose power at any time. What append has taken without trouble is on the disk. Of a
// line that a power cut has torn the file keeps the start, and the next one begins on a line of its own. One process at a
// time: the lock is held as long as the file is open, by a file "journal.lock" that stays.
//
// While the file cannot be written, the latest lines wait in memory and each append tries again.
class JournalFile {
public:
    explicit JournalFile(JournalFileSettings settings)
        : settings_{std::move(settings)}
    {
    }

    // Lines without their line feeds. They stay in one file. Why they are not on the disk, or what else is wrong; empty
    // when all is well.
    std::string append(const std::vector<std::string>& lines);

    const std::filesystem::path& folder() const { return settings_.folder; }

private:
    std::filesystem::path present() const { return journalFile(settings_.folder, 0); }
    bool isInPlace() const;
    std::string open();
    std::string openPresent();
    std::string putAside();
    void hold(const std::vector<std::string>& lines);
    std::string writeHeld();
    std::string write(const std::string& line);

    JournalFileSettings settings_;
    portable::Descriptor lock_;
    portable::Descriptor file_;
    std::int64_t size_ = 0; // of the file, bytes
    bool isTorn_ = false; // its last line has no end
    std::deque<std::string> waiting_; // with their line feeds
    std::int64_t lost_ = 0; // lines that waited too long
};

} // namespace servopanel::journal

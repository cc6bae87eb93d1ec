#pragma once

#include "jet/open_file.h"

#include <filesystem>
#include <sys/stat.h>

namespace servopanel::jet {

// A new file beside the one whose place it takes; it vanishes again unless it has taken it. Its name,
// ".<name>.<process>-<number>.new", belongs to it alone, and it is locked (flock) as long as this lives: one that is not
// locked was left by a program that was killed, and the next successor of the same file removes it.
class Successor {
public:
    // file: without symbolic links. permissions: those that the process' own mask leaves of these.
    Successor(const std::filesystem::path& file, mode_t permissions);
    Successor(const Successor&) = delete;
    Successor& operator=(const Successor&) = delete;
    ~Successor();

    // Gives it owner and permissions of another file.
    void resemble(const struct stat& old) const;

    // Writes it and reads it again, so that a failing disk is found before the old file goes.
    Bytes fill(ByteView content);

    // Takes the place of the file that is there.
    void takePlace();
    // Takes the place when nothing is there; error AlreadyExists.
    void takeFreePlace();

private:
    void placed();

    std::filesystem::path target_;
    std::filesystem::path path_;
    OpenFile file_;
    bool placed_ = false;
};

} // namespace servopanel::jet

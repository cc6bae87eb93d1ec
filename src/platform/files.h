#pragma once

#include "basic/error.h"

#include <optional>
#include <string>
#include <string_view>

namespace servopanel::platform {

// What a text file holds, in UTF-8; CR LF, LF and CR alone all end a line. failure: why reading stopped before the end.
struct TextFile {
    std::string text;
    std::optional<basic::Error> failure;
};

// Files and folders by full path, with backslashes and drive letters.
class Files {
public:
    virtual ~Files() = default;

    // Opens and reads a configuration file; error 53, 75 or 76 when it cannot be opened. One file at a time is in
    // use: closeText ends the use, and a host may keep the file to itself until then.
    virtual TextFile openText(std::string_view path) = 0;
    // Comes once more for a file that is no longer in use, which is no error.
    virtual void closeText() = 0;
    // Replaces a text file; the text is UTF-8 and its lines end with CR LF.
    virtual void writeText(std::string_view path, std::string_view text) = 0;

    // Whether a file or a folder of this name exists.
    virtual bool exists(std::string_view path) = 0;
    // Error 76 when its parent is missing.
    virtual void createFolder(std::string_view path) = 0;
};

} // namespace servopanel::platform

#pragma once

#include "jet/bytes.h"

namespace servopanel::jet {

// What a file is, by its content; names do not count.
enum class FileKind : std::uint8_t {
    Empty,
    Database, // of any version, also of one that is not read
    Text, // no byte of it is 0
    Other,
};

FileKind kindOf(ByteView content);

} // namespace servopanel::jet

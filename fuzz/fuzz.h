#pragma once

#include <string_view>

namespace servopanel::fuzz {

// Gives the bytes of one file or message to a reader. Each target has one of these. Whatever the bytes are, the reader
// may refuse them as it says it does; anything else (an exception of another kind, a broken promise, a crash) ends the
// program.
void feed(std::string_view bytes);

// What a reader promised does not hold: ends the program.
[[noreturn]] void broken(std::string_view promise);

} // namespace servopanel::fuzz

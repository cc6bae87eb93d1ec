#pragma once

#include "basic/error.h"
#include "basic/function_ref.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace servopanel::portable {

// The bytes of a file, and why reading stopped before its end.
struct FileBytes {
    std::string bytes;
    std::optional<basic::Error> failure;
};

// No text file of a project comes near it; a larger one was put there by mistake and would hold the panel up.
inline constexpr std::uintmax_t largestTextFile = 20'000'000; // bytes

// Reads an ordinary file. Error 53 when there is none, 76 when its folder is missing, 75 when it cannot be opened or is
// larger than that (bytes). name: the file's name for the error texts.
FileBytes readFile(
    const std::filesystem::path& file, std::string_view name, std::uintmax_t largest = largestTextFile);

// Puts up to the given number of bytes into the buffer: how many, 0 at the end, -1 on failure with errno set.
using ReadSome = basic::FunctionRef<std::ptrdiff_t(char*, std::size_t)>;

// Reads to the end, at most so many bytes. A character in UTF-8 that a failure has cut in two is dropped, so that the
// rest is still recognised as UTF-8.
FileBytes readToEnd(ReadSome readSome, std::uintmax_t largest, std::string_view name);

} // namespace servopanel::portable

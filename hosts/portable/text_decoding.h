#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::portable {

// The bytes of a text file as UTF-8. Files come from panels of two generations: bytes that are valid UTF-8 as a whole are
// taken as they are, all others as Windows-1252. A byte order mark is dropped. Never fails.
std::string decodedText(std::string bytes);

// The lines of that text without their ends; CR LF, LF and CR alone all end a line.
std::vector<std::string> decodeLines(std::string_view bytes);

// UTF-8 without the byte order mark that some editors put before it.
std::string_view withoutByteOrderMark(std::string_view bytes);

// UTF-16 that says so by a byte order mark, as UTF-8; nothing for any other bytes. What is no character becomes U+FFFD.
std::optional<std::string> fromUtf16(std::string_view bytes);

// Whether the bytes are well-formed UTF-8: shortest forms only, no surrogates, nothing above U+10FFFF.
bool isUtf8(std::string_view bytes);

// Windows-1252 as UTF-8. The five bytes without a character become the control codes of the same number.
std::string fromWindows1252(std::string_view bytes);

} // namespace servopanel::portable

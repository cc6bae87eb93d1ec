#include "portable/text_decoding.h"

#include "basic/lines.h"

#include <array>
#include <cstddef>

namespace servopanel::portable {

namespace {

// Code points of the bytes 0x80 to 0x9F; all other bytes stand for the code point of their own number.
constexpr std::array<char16_t, 32> windows1252High{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020,
    0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C,
    0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void append(std::string& text, unsigned codePoint)
{
    const auto put = [&text](unsigned byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
    if (codePoint < 0x80U) {
        put(codePoint);
    } else if (codePoint < 0x800U) {
        put(0xC0U | (codePoint >> 6U));
        put(0x80U | (codePoint & 0x3FU));
    } else if (codePoint < 0x10000U) {
        put(0xE0U | (codePoint >> 12U));
        put(0x80U | ((codePoint >> 6U) & 0x3FU));
        put(0x80U | (codePoint & 0x3FU));
    } else {
        put(0xF0U | (codePoint >> 18U));
        put(0x80U | ((codePoint >> 12U) & 0x3FU));
        put(0x80U | ((codePoint >> 6U) & 0x3FU));
        put(0x80U | (codePoint & 0x3FU));
    }
}

// What may follow a lead byte: how many bytes in all, and the range of the second one, which rules out overlong forms,
// surrogates and code points that do not exist. Length 0: no lead byte.
struct Sequence {
    std::size_t length = 0;
    unsigned secondLow = 0x80;
    unsigned secondHigh = 0xBF;
};

constexpr Sequence sequence(unsigned lead)
{
    if (lead < 0x80U) return {1};
    if (lead < 0xC2U) return {0};
    if (lead < 0xE0U) return {2};
    if (lead == 0xE0U) return {3, 0xA0, 0xBF};
    if (lead == 0xEDU) return {3, 0x80, 0x9F};
    if (lead < 0xF0U) return {3};
    if (lead == 0xF0U) return {4, 0x90, 0xBF};
    if (lead < 0xF4U) return {4};
    if (lead == 0xF4U) return {4, 0x80, 0x8F};
    return {0};
}

// The bytes before the first block with another one than ASCII: whole blocks are looked at several times as fast.
std::size_t asciiBlocks(std::string_view bytes)
{
    constexpr std::size_t block = 64;
    std::size_t start = 0;
    for (; bytes.size() - start >= block; start += block) {
        unsigned all = 0;
        for (const char sign : bytes.substr(start, block))
            all |= static_cast<unsigned char>(sign);
        if (all >= 0x80U) break;
    }
    return start;
}

} // namespace

bool isUtf8(std::string_view bytes)
{
    const auto byteAt = [bytes](std::size_t index) {
        return static_cast<unsigned>(static_cast<unsigned char>(bytes[index]));
    };
    std::size_t i = asciiBlocks(bytes);
    while (i < bytes.size()) {
        if (byteAt(i) < 0x80U) {
            ++i;
            continue;
        }
        const Sequence expected = sequence(byteAt(i));
        if (expected.length == 0 || expected.length > bytes.size() - i) return false;
        if (expected.length > 1
            && (byteAt(i + 1) < expected.secondLow || byteAt(i + 1) > expected.secondHigh))
            return false;
        for (std::size_t next = 2; next < expected.length; ++next)
            if ((byteAt(i + next) & 0xC0U) != 0x80U) return false;
        i += expected.length;
    }
    return true;
}

std::string fromWindows1252(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char sign : bytes) {
        const auto byte = static_cast<unsigned>(static_cast<unsigned char>(sign));
        append(text, byte >= 0x80U && byte < 0xA0U ? windows1252High[byte - 0x80U] : byte);
    }
    return text;
}

std::string_view withoutByteOrderMark(std::string_view bytes)
{
    constexpr std::string_view byteOrderMark{"\xEF\xBB\xBF"};
    return bytes.substr(0, byteOrderMark.size()) == byteOrderMark ? bytes.substr(byteOrderMark.size())
                                                                  : bytes;
}

std::optional<std::string> fromUtf16(std::string_view bytes)
{
    constexpr std::string_view littleEndianMark{"\xFF\xFE"};
    constexpr std::string_view bigEndianMark{"\xFE\xFF"};
    constexpr unsigned noCharacter = 0xFFFD;
    const std::string_view mark = bytes.substr(0, 2);
    if (mark != littleEndianMark && mark != bigEndianMark) return {};
    const std::size_t high = mark == bigEndianMark ? 0 : 1;
    const std::size_t count = bytes.size() / 2;
    const auto unitAt = [&](std::size_t index) {
        const auto byte = [&](std::size_t place) {
            return static_cast<unsigned>(static_cast<unsigned char>(bytes[2 * index + place]));
        };
        return byte(high) << 8U | byte(1 - high);
    };
    const auto isIn = [](unsigned unit, unsigned first) { return unit >= first && unit < first + 0x400U; };
    constexpr unsigned firstHigh = 0xD800; // surrogates
    constexpr unsigned firstLow = 0xDC00;
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t i = 1; i < count; ++i) {
        const unsigned unit = unitAt(i);
        if (isIn(unit, firstHigh) && i + 1 < count && isIn(unitAt(i + 1), firstLow)) {
            append(text, 0x10000U + ((unit - firstHigh) << 10U) + (unitAt(i + 1) - firstLow));
            ++i;
        } else {
            append(text, isIn(unit, firstHigh) || isIn(unit, firstLow) ? noCharacter : unit);
        }
    }
    if (bytes.size() % 2 != 0) append(text, noCharacter); // the file was cut within a character
    return text;
}

std::string decodedText(std::string bytes)
{
    const std::string_view content = withoutByteOrderMark(bytes);
    if (!isUtf8(content)) return fromWindows1252(content);
    bytes.erase(0, bytes.size() - content.size());
    return bytes;
}

std::vector<std::string> decodeLines(std::string_view bytes)
{
    const std::string text = decodedText(std::string{bytes});
    std::vector<std::string> lines;
    basic::Lines parts{text};
    while (const std::optional<std::string_view> line = parts.next())
        lines.emplace_back(*line);
    return lines;
}

} // namespace servopanel::portable

#include "jet/text_coding.h"

#include "portable/text_decoding.h"

#include <algorithm>
#include <cerrno>
#include <optional>

namespace servopanel::jet {

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t byteOrderMark = 0xFEFF;
// Starts a compressed text: characters of one byte, until a zero byte switches to two bytes and back.
constexpr std::uint8_t compressedMark[]{0xFF, 0xFE};

iconv_t noConverter()
{
    // That is how iconv says it.
    return reinterpret_cast<iconv_t>(-1); // NOLINT(performance-no-int-to-ptr)
}

void appendUtf8(std::string& text, char32_t sign)
{
    const auto put = [&text](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
    if (sign < 0x80) {
        put(sign);
        return;
    }
    if (sign < 0x800) {
        put(0xC0U | (sign >> 6U));
    } else {
        if (sign < 0x10000) {
            put(0xE0U | (sign >> 12U));
        } else {
            put(0xF0U | (sign >> 18U));
            put(0x80U | ((sign >> 12U) & 0x3FU));
        }
        put(0x80U | ((sign >> 6U) & 0x3FU));
    }
    put(0x80U | (sign & 0x3FU));
}

bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

std::string fromUnits(const std::u16string& units)
{
    std::string text;
    for (std::size_t i = 0; i < units.size(); ++i) {
        char32_t sign = units[i];
        if (isHighSurrogate(sign) && i + 1 < units.size() && isLowSurrogate(units[i + 1]))
            sign = 0x10000 + ((sign - 0xD800) << 10U) + (units[++i] - 0xDC00U);
        else if (isHighSurrogate(sign) || isLowSurrogate(sign))
            sign = replacement;
        appendUtf8(text, sign);
    }
    return text;
}

std::u16string unitsOf(ByteView stored)
{
    std::u16string units;
    const auto putPair = [&](std::size_t at) { units += static_cast<char16_t>(load16(stored, at)); };
    const bool compressed = stored.size() >= std::size(compressedMark)
        && std::equal(std::begin(compressedMark), std::end(compressedMark), stored.begin());
    if (!compressed) {
        for (std::size_t at = 0; at + 1 < stored.size(); at += 2)
            putPair(at);
        return units;
    }
    bool oneByte = true;
    std::size_t at = std::size(compressedMark);
    while (at < stored.size()) {
        if (stored[at] == 0) {
            oneByte = !oneByte;
            ++at;
        } else if (oneByte) {
            units += static_cast<char16_t>(stored[at++]);
        } else {
            if (at + 1 == stored.size()) break;
            putPair(at);
            at += 2;
        }
    }
    return units;
}

// The characters of a text that is known to be UTF-8.
std::u32string signsOf(std::string_view text)
{
    std::u32string signs;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80)
            signs += byte;
        else if ((byte & 0xC0U) == 0x80U)
            signs.back() = (signs.back() << 6U) | (byte & 0x3FU);
        else
            signs += static_cast<char32_t>(byte & (byte < 0xE0 ? 0x1FU : byte < 0xF0 ? 0x0FU : 0x07U));
    }
    return signs;
}

Bytes toWindows1252(const std::u32string& signs)
{
    // The table is that of the reading direction.
    static const std::u32string byByte = [] {
        std::u32string all;
        for (unsigned byte = 0; byte < 256; ++byte) {
            const char c = static_cast<char>(static_cast<unsigned char>(byte));
            all += signsOf(portable::fromWindows1252({&c, 1}));
        }
        return all;
    }();
    Bytes stored;
    for (const char32_t sign : signs) {
        const std::size_t byte = byByte.find(sign);
        if (byte == std::u32string::npos)
            raise(JetError::TypeMismatch, "a text has a character that a Jet 3 file cannot hold");
        stored.push_back(static_cast<std::uint8_t>(byte));
    }
    return stored;
}

Bytes toUnits(const std::u32string& signs)
{
    Bytes stored;
    for (const char32_t sign : signs) {
        if (sign < 0x10000) {
            append(stored, sign, 2);
        } else {
            append(stored, 0xD800 + ((sign - 0x10000) >> 10U), 2);
            append(stored, 0xDC00 + ((sign - 0x10000) & 0x3FFU), 2);
        }
    }
    return stored;
}

} // namespace

TextDecoder::TextDecoder(JetVersion version, std::uint16_t codePage)
    : version_{version}
    , converter_{noConverter()}
{
    if (version == JetVersion::Jet3 && codePage != windows1252)
        converter_ = ::iconv_open("UTF-8", ("CP" + std::to_string(codePage)).c_str());
}

TextDecoder::~TextDecoder()
{
    if (converter_ != noConverter()) ::iconv_close(converter_);
}

std::string TextDecoder::decode(ByteView stored) const
{
    if (version_ == JetVersion::Jet4) return fromUnits(unitsOf(stored));
    return fromCodePage(stored);
}

std::string TextDecoder::fromCodePage(ByteView stored) const
{
    std::string bytes{stored.begin(), stored.end()};
    if (converter_ == noConverter()) return portable::fromWindows1252(bytes);
    ::iconv(converter_, nullptr, nullptr, nullptr, nullptr);
    std::string text;
    char* in = bytes.data();
    std::size_t inLeft = bytes.size();
    while (inLeft > 0) {
        char buffer[256];
        char* out = buffer;
        std::size_t outLeft = sizeof buffer;
        const bool failed = ::iconv(converter_, &in, &inLeft, &out, &outLeft) == static_cast<std::size_t>(-1);
        const bool full = failed && errno == E2BIG;
        text.append(buffer, sizeof buffer - outLeft);
        if (failed && !full) {
            appendUtf8(text, replacement);
            ++in;
            --inLeft;
        }
    }
    return text;
}

Bytes encodeText(std::string_view text, JetVersion version, TextForm form)
{
    if (!portable::isUtf8(text)) raise(JetError::TypeMismatch, "a text is not UTF-8");
    const std::u32string signs = signsOf(text);
    if (version == JetVersion::Jet3) return toWindows1252(signs);
    const bool compressible =
        std::all_of(signs.begin(), signs.end(), [](char32_t sign) { return sign > 0 && sign < 0x100; });
    if (form == TextForm::Plain || !compressible) {
        // Stored, it would be the mark of a compressed text.
        if (!signs.empty() && signs.front() == byteOrderMark)
            raise(JetError::TypeMismatch, "a text begins with the invisible character U+FEFF");
        return toUnits(signs);
    }
    Bytes stored{std::begin(compressedMark), std::end(compressedMark)};
    for (const char32_t sign : signs)
        stored.push_back(static_cast<std::uint8_t>(sign));
    return stored;
}

} // namespace servopanel::jet

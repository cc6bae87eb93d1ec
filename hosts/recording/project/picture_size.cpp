#include "recording/project/picture_size.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace servopanel::recording {

namespace {

// Reads numbers out of a file's bytes; what lies behind the end is 0 and makes the header damaged.
class Header {
public:
    explicit Header(std::string_view bytes)
        : bytes_{bytes}
    {
    }
    bool startsWith(std::string_view signature) const
    {
        return bytes_.substr(0, signature.size()) == signature;
    }
    bool holds(std::size_t end) const { return end <= bytes_.size(); }
    std::uint32_t byte(std::size_t at) const
    {
        return at < bytes_.size() ? static_cast<unsigned char>(bytes_[at]) : 0U;
    }
    std::uint32_t little16(std::size_t at) const { return byte(at) | (byte(at + 1) << 8U); }
    std::uint32_t little32(std::size_t at) const { return little16(at) | (little16(at + 2) << 16U); }
    std::uint32_t big16(std::size_t at) const { return (byte(at) << 8U) | byte(at + 1); }
    std::uint32_t big32(std::size_t at) const { return (big16(at) << 16U) | big16(at + 2); }

private:
    std::string_view bytes_;
};

std::optional<PictureSize> sized(std::int64_t width, std::int64_t height)
{
    constexpr std::int64_t largest = 32767;
    if (width < 1 || height < 1 || width > largest || height > largest) return std::nullopt;
    return PictureSize{static_cast<std::int32_t>(width), static_cast<std::int32_t>(height)};
}

std::optional<PictureSize> bitmapSize(const Header& header)
{
    constexpr std::uint32_t oldInfoSize = 12;
    if (header.little32(14) == oldInfoSize) return sized(header.little16(18), header.little16(20));
    // A negative height means that the rows run from the top.
    const auto height = static_cast<std::int32_t>(header.little32(22));
    return sized(header.little32(18), std::llabs(height));
}

std::optional<PictureSize> jpegSize(const Header& header)
{
    std::size_t at = 2;
    while (header.holds(at + 9) && header.byte(at) == 0xFF) {
        const std::uint32_t marker = header.byte(at + 1);
        const bool isFrame =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (isFrame) return sized(header.big16(at + 7), header.big16(at + 5));
        at += marker == 0xFF ? 1 : 2 + header.big16(at + 2);
    }
    return std::nullopt;
}

std::optional<PictureSize> metafileSize(const Header& header)
{
    const auto signed16 = [&](std::size_t at) { return static_cast<std::int16_t>(header.little16(at)); };
    const std::int64_t unitsPerInch = header.little16(14);
    if (unitsPerInch == 0) return std::nullopt;
    constexpr std::int64_t dotsPerInch = 96;
    const std::int64_t width = std::int64_t{signed16(10)} - signed16(6);
    const std::int64_t height = std::int64_t{signed16(12)} - signed16(8);
    return sized(width * dotsPerInch / unitsPerInch, height * dotsPerInch / unitsPerInch);
}

} // namespace

std::optional<PictureSize> pictureSize(std::string_view bytes)
{
    const Header header{bytes};
    if (header.startsWith("GIF8") && header.holds(10)) return sized(header.little16(6), header.little16(8));
    if (header.startsWith("BM") && header.holds(26)) return bitmapSize(header);
    if (header.startsWith("\x89PNG\r\n\x1A\n") && header.holds(24))
        return sized(header.big32(16), header.big32(20));
    if (header.startsWith("\xFF\xD8")) return jpegSize(header);
    if (header.startsWith("\xD7\xCD\xC6\x9A") && header.holds(22)) return metafileSize(header);
    return std::nullopt;
}

} // namespace servopanel::recording

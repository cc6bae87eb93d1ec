#include "jet/file_image.h"

#include "jet/rc4.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace servopanel::jet {

namespace {

constexpr std::string_view signature{"\0\1\0\0Standard Jet DB\0", 20};
// Header, free pages, the catalogue with its map and rows.
constexpr std::size_t fewestPages = 5;

const PageFormat& formatOfFile(ByteView bytes)
{
    if (bytes.size() < jet3Format.pageSize)
        raise(JetError::UnknownFormat, "it is no Jet database: too short");
    // The word in the signature differs in newer formats, which have the same first bytes and a higher version.
    if (!std::equal(signature.begin(), signature.begin() + 4, bytes.begin()))
        raise(JetError::UnknownFormat, "it is no Jet database");
    const std::uint8_t version = load8(bytes, headerVersion);
    if (version > static_cast<std::uint8_t>(JetVersion::Jet4))
        raise(JetError::UnknownFormat,
            "its format is newer than Jet 4 (version " + std::to_string(version) + ")");
    if (!std::equal(signature.begin(), signature.end(), bytes.begin(),
            [](char expected, std::uint8_t byte) { return static_cast<std::uint8_t>(expected) == byte; }))
        raise(JetError::UnknownFormat, "it is no Jet database");
    return formatOf(static_cast<JetVersion>(version));
}

} // namespace

FileImage::FileImage(Bytes bytes)
    : bytes_{std::move(bytes)}
    , format_{&formatOfFile(bytes_)}
{
    if (bytes_.size() % format_->pageSize != 0)
        raiseDamaged("it ends in the middle of a page, so its end is missing");
    if (bytes_.size() / format_->pageSize < fewestPages) raiseDamaged("its end is missing");
    Bytes header{bytes_.begin(), bytes_.begin() + static_cast<std::ptrdiff_t>(format_->pageSize)};
    rc4(headerKey, std::span{header}.subspan(headerCoded, format_->headerCodedSize));
    codePage_ = load16(header, headerCodePage);
    key_ = load32(header, headerDatabaseKey);
}

ByteView FileImage::page(std::uint32_t number) const
{
    if (number >= pageCount())
        raiseDamaged("it refers to page " + std::to_string(number) + ", which it lacks");
    const std::size_t size = format_->pageSize;
    const ByteView stored = ByteView{bytes_}.subspan(number * size, size);
    if (key_ == 0 || number == 0) return stored;
    const auto [found, isNew] = decoded_.try_emplace(number);
    if (isNew) {
        found->second.assign(stored.begin(), stored.end());
        rc4(key_ ^ number, found->second);
    }
    return found->second;
}

void FileImage::change(std::uint32_t pageNumber, std::size_t at, ByteView content)
{
    part(page(pageNumber), at, content.size());
    if (pageNumber == 0) raiseDamaged("its header would be changed");
    const auto decoded = decoded_.find(pageNumber);
    std::uint8_t* stored = bytes_.data() + pageNumber * format_->pageSize + at;
    for (std::size_t i = 0; i < content.size(); ++i) {
        if (decoded == decoded_.end()) {
            stored[i] = content[i];
            continue;
        }
        // The code is a stream that is combined with the plain bytes by exclusive or.
        std::uint8_t& plain = decoded->second[at + i];
        stored[i] = static_cast<std::uint8_t>(stored[i] ^ plain ^ content[i]);
        plain = content[i];
    }
}

} // namespace servopanel::jet

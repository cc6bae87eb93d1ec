#pragma once

#include "jet/bytes.h"
#include "jet/page_format.h"

#include <cstdint>
#include <map>

namespace servopanel::jet {

// The bytes of a database file in memory, seen as decoded pages.
class FileImage {
public:
    // Raises UnknownFormat when these are not the bytes of a Jet 3 or Jet 4 file, Damaged when the last page is
    // incomplete.
    explicit FileImage(Bytes bytes);

    const PageFormat& format() const { return *format_; }
    std::uint32_t pageCount() const { return static_cast<std::uint32_t>(bytes_.size() / format_->pageSize); }
    // Of the texts in a Jet 3 file.
    std::uint16_t codePage() const { return codePage_; }

    // A page as plain bytes; error Damaged when the file has no such page. Valid until the image goes.
    ByteView page(std::uint32_t number) const;

    // Changes plain bytes of a page; those of an encoded file are encoded on the way. Page 0 cannot be changed.
    void change(std::uint32_t pageNumber, std::size_t at, ByteView content);

    // As they are in the file.
    const Bytes& bytes() const { return bytes_; }

private:
    Bytes bytes_;
    const PageFormat* format_ = nullptr;
    std::uint16_t codePage_ = 0;
    std::uint32_t key_ = 0; // 0: pages are not encoded
    mutable std::map<std::uint32_t, Bytes> decoded_; // the pages of an encoded file that were asked for
};

} // namespace servopanel::jet

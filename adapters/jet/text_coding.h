#pragma once

#include "jet/bytes.h"
#include "jet/page_format.h"

#include <cstdint>
#include <iconv.h>
#include <string>
#include <string_view>

namespace servopanel::jet {

// Texts of a database as UTF-8. Never fails: what is no character becomes U+FFFD.
class TextDecoder {
public:
    // codePage: of a Jet 3 file; an unknown one is taken as Windows-1252.
    TextDecoder(JetVersion version, std::uint16_t codePage);
    TextDecoder(const TextDecoder&) = delete;
    TextDecoder& operator=(const TextDecoder&) = delete;
    ~TextDecoder();

    std::string decode(ByteView stored) const;

private:
    std::string fromCodePage(ByteView stored) const;

    JetVersion version_;
    iconv_t converter_; // none for Windows-1252
};

enum class TextForm : std::uint8_t {
    Plain,
    Compressed, // one byte for each character when all of them allow it
};

// UTF-8 as a Jet 4 file stores it, or in Windows-1252 for Jet 3. Error TypeMismatch when the text is not UTF-8, has a
// character that Windows-1252 lacks, or begins with U+FEFF, which no reader of a Jet 4 file would find again.
Bytes encodeText(std::string_view text, JetVersion version, TextForm form = TextForm::Plain);

} // namespace servopanel::jet

#include "portable/portable_profile.h"

#include "basic/error.h"
#include "portable/profile_text.h"
#include "portable/text_decoding.h"
#include "portable/text_reading.h"

#include <utility>

namespace servopanel::portable {

std::optional<std::string> PortableProfile::text(
    std::string_view file, std::string_view section, std::string_view entry)
{
    try {
        FileBytes content = readFile(mapping_.resolve(file), file);
        return profileLookUp(decodedText(std::move(content.bytes)), section, entry);
    } catch (const basic::Error&) {
        return std::nullopt;
    }
}

} // namespace servopanel::portable

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace servopanel::portable {

// One look-up in the text of an INI file by the rules of the Windows profile functions. Section and entry are found
// without regard to case, blanks around them do not count. Only the first section of a name is looked into, and there
// the first entry. Lines that begin with ";" are comments. The value comes without blanks around it, without one pair
// of quotes (" or ') around that, and is cut after 254 characters.
//
// Nothing when section or entry is missing; an entry without a value is there and gives "".
std::optional<std::string> profileLookUp(
    std::string_view text, std::string_view section, std::string_view entry);

// The number in a value as the library takes it: a sign and the digits that come first, hexadecimal ones after 0x. What
// stands behind them does not count; without digits it is 0. The largest one stands for every number beyond 32 bits.
std::int32_t profileNumber(std::string_view value);

} // namespace servopanel::portable

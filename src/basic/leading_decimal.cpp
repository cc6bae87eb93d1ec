#include "basic/leading_decimal.h"

#include "basic/error.h"

#include <charconv>

namespace servopanel::basic {

namespace {

// Whether a number that no double holds is too small rather than too large.
bool isTiny(std::string_view number)
{
    const std::size_t exponent = number.find_first_of("eE");
    if (exponent != std::string_view::npos) return number.substr(exponent + 1).starts_with('-');
    return number.substr(0, number.find('.')).find_first_of("123456789") == std::string_view::npos;
}

} // namespace

LeadingDecimal leadingDecimal(std::string_view text)
{
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    const auto length = static_cast<std::size_t>(result.ptr - text.data());
    // The standard library reads "inf" and "nan" too.
    if (text.substr(0, length).find_first_of("nN") != std::string_view::npos) return {};
    if (result.ec == std::errc::result_out_of_range) {
        if (!isTiny(text.substr(0, length))) raise(ErrorNumber::Overflow);
        return {0, length};
    }
    return {value, length};
}

} // namespace servopanel::basic

#include "basic/text.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "basic/leading_decimal.h"

#include <charconv>
#include <cmath>
#include <cstdint>

namespace servopanel::basic {

namespace {

// The capital of a letter between U+0080 and U+07FF; whatever has none there stays.
unsigned capital(unsigned letter)
{
    if (letter >= 0xE0 && letter <= 0xFE && letter != 0xF7) return letter - 0x20; // but the division sign
    if (letter == 0xFF) return 0x178; // y with diaeresis
    // From U+0100 to U+017E capital and small letters take turns, but for dotless i.
    if (letter < 0x100 || letter > 0x17E || letter == 0x131) return letter;
    const bool evenCapitals = letter <= 0x138 || (letter >= 0x14A && letter <= 0x178);
    const bool isEven = letter % 2 == 0;
    return isEven == evenCapitals ? letter : letter - 1;
}

} // namespace

std::string upperCase(std::string_view text)
{
    std::string upper;
    upper.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const auto next = i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : 0U;
        if (byte >= 'a' && byte <= 'z') {
            upper += static_cast<char>(byte - 'a' + 'A');
        } else if ((byte & 0xE0U) == 0xC0U && (next & 0xC0U) == 0x80U) {
            const unsigned letter = capital((byte & 0x1FU) << 6 | (next & 0x3FU));
            upper += static_cast<char>(0xC0U | letter >> 6);
            upper += static_cast<char>(0x80U | (letter & 0x3FU));
            ++i;
        } else {
            upper += text[i];
        }
    }
    return upper;
}

std::string_view trim(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

namespace {

// The text as the start of a decimal number is read elsewhere: without a plus sign, and with "e" where the exponent begins
// with any of its four letters. Empty when it begins with no number.
std::string leadingNumber(std::string_view text)
{
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    const std::string_view digits = text.substr(0, text.find_first_not_of("0123456789."));
    if (digits.empty()) return {};
    std::string number = negative ? "-" : "";
    number += digits;
    text.remove_prefix(digits.size());
    if (text.find_first_of("EeDd") == 0) number.append("e").append(text.substr(1));
    return number;
}

double hexadecimalStart(std::string_view digits)
{
    std::uint32_t bits = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), bits, 16);
    if (result.ec == std::errc::result_out_of_range) raise(ErrorNumber::Overflow);
    return result.ptr - digits.data() <= 4 ? static_cast<double>(static_cast<std::int16_t>(bits))
                                           : static_cast<double>(static_cast<std::int32_t>(bits));
}

} // namespace

double Val(std::string_view text)
{
    std::string packed;
    for (char sign : text)
        if (sign != ' ' && sign != '\t' && sign != '\n' && sign != '\r') packed += sign;
    if (packed.starts_with("&H") || packed.starts_with("&h"))
        return hexadecimalStart(std::string_view{packed}.substr(2));
    return leadingDecimal(leadingNumber(packed)).value;
}

std::string Format(const Variant& value, std::string_view zeros)
{
    if (value.type() == VariantType::Null || value.type() == VariantType::Empty) return {};
    double number = 0;
    try {
        number = toDouble(value);
    } catch (const Error&) {
        if (const std::string* text = value.get<std::string>()) return *text;
        throw;
    }
    const double rounded = std::round(number);
    if (!std::isfinite(rounded)) raise(ErrorNumber::Overflow);
    char buffer[352];
    const auto result =
        std::to_chars(std::begin(buffer), std::end(buffer), std::fabs(rounded), std::chars_format::fixed, 0);
    std::string digits{std::begin(buffer), result.ptr};
    if (digits.size() < zeros.size()) digits.insert(0, zeros.size() - digits.size(), '0');
    return rounded < 0 ? "-" + digits : digits;
}

} // namespace servopanel::basic

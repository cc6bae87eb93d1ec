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
    const bool odd = letter % 2 == 1;
    if (letter >= 0xE0 && letter <= 0xFE && letter != 0xF7) return letter - 0x20; // but the division sign
    if (letter == 0xFF) return 0x178; // y with diaeresis
    if (letter == 0x131) return letter; // dotless i
    // Capital and small letters in turn, the capital on even numbers, odd ones, even ones, odd ones.
    if (letter >= 0x100 && letter <= 0x137) return odd ? letter - 1 : letter;
    if (letter >= 0x139 && letter <= 0x148) return odd ? letter : letter - 1;
    if (letter >= 0x14A && letter <= 0x177) return odd ? letter - 1 : letter;
    if (letter >= 0x179 && letter <= 0x17E) return odd ? letter : letter - 1;
    return letter;
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
        } else if (byte >= 0xC2 && byte <= 0xDF && (next & 0xC0U) == 0x80U) {
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

bool isDigit(char sign) { return sign >= '0' && sign <= '9'; }

// The text as the start of a decimal number is read elsewhere: without a plus sign, and with "e" where the exponent begins
// with any of its four letters. Empty when it begins with no number.
std::string leadingNumber(std::string_view text)
{
    std::string number;
    std::size_t i = 0;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) {
        if (text[i] == '-') number += '-';
        ++i;
    }
    const std::size_t first = i;
    while (i < text.size() && (isDigit(text[i]) || text[i] == '.'))
        number += text[i++];
    if (i == first) return {};
    if (i < text.size() && (text[i] == 'E' || text[i] == 'e' || text[i] == 'D' || text[i] == 'd'))
        number.append("e").append(text.substr(i + 1));
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
    if (packed.size() > 2 && packed[0] == '&' && (packed[1] == 'H' || packed[1] == 'h'))
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
    const double rounded = std::round(std::fabs(number));
    if (!std::isfinite(rounded)) raise(ErrorNumber::Overflow);
    char buffer[352];
    const auto result =
        std::to_chars(std::begin(buffer), std::end(buffer), rounded, std::chars_format::fixed, 0);
    std::string digits{std::begin(buffer), result.ptr};
    if (digits.size() < zeros.size()) digits.insert(0, zeros.size() - digits.size(), '0');
    return number < 0 && rounded != 0.0 ? "-" + digits : digits;
}

} // namespace servopanel::basic

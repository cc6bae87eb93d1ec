#include "recording/scenario/line_reader.h"

#include "basic/conversions.h"
#include "basic/error.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace servopanel::recording {

namespace {

bool isBlank(char sign) { return sign == ' ' || sign == '\t'; }

bool isDigit(char sign) { return sign >= '0' && sign <= '9'; }

// Digits, at most one point between or behind them, and no exponent: the way numbers are written in traces.
bool isNumber(std::string_view text)
{
    if (!text.empty() && text.front() == '-') text.remove_prefix(1);
    if (text.empty() || !isDigit(text.front())) return false;
    bool point = false;
    for (const char sign : text) {
        if (sign == '.' && !point)
            point = true;
        else if (!isDigit(sign))
            return false;
    }
    return true;
}

std::optional<double> numberOf(std::string_view text)
{
    if (!isNumber(text)) return std::nullopt;
    double number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec != std::errc{} || result.ptr != text.data() + text.size()) return std::nullopt;
    return number;
}

basic::Variant numberValue(std::string_view text)
{
    const std::optional<double> number = numberOf(text);
    if (!number) throw Malformed{"'" + std::string{text} + "' is no value"};
    if (text.find('.') != std::string_view::npos) return *number;
    if (std::fabs(*number) > 2147483648.0 || *number == 2147483648.0)
        throw Malformed{"'" + std::string{text} + "' does not fit into 32 bits"};
    const auto whole = static_cast<std::int32_t>(*number);
    if (whole < std::numeric_limits<std::int16_t>::min() || whole > std::numeric_limits<std::int16_t>::max())
        return whole;
    return static_cast<std::int16_t>(whole);
}

std::string missing(std::string_view what) { return std::string{what} + " is missing"; }

} // namespace

void LineReader::skipBlanks()
{
    while (!rest_.empty() && isBlank(rest_.front()))
        rest_.remove_prefix(1);
}

bool LineReader::atEnd()
{
    skipBlanks();
    return rest_.empty();
}

std::string_view LineReader::token()
{
    std::size_t length = 0;
    while (length < rest_.size() && !isBlank(rest_[length]))
        ++length;
    const std::string_view found = rest_.substr(0, length);
    rest_.remove_prefix(length);
    return found;
}

std::string LineReader::quotedText()
{
    std::string text;
    for (std::size_t i = 1; i < rest_.size(); ++i) {
        if (rest_[i] != '"') {
            text += rest_[i];
        } else if (i + 1 < rest_.size() && rest_[i + 1] == '"') {
            text += '"';
            ++i;
        } else {
            rest_.remove_prefix(i + 1);
            return text;
        }
    }
    throw Malformed{"a quote is not closed"};
}

std::string LineReader::word(std::string_view what)
{
    if (atEnd()) throw Malformed{missing(what)};
    if (rest_.front() != '"') return std::string{token()};
    std::string text = quotedText();
    if (!rest_.empty() && !isBlank(rest_.front())) throw Malformed{"a blank is missing behind a quote"};
    return text;
}

std::string LineReader::peek()
{
    skipBlanks();
    LineReader ahead{rest_};
    return ahead.atEnd() ? std::string{} : ahead.word({});
}

basic::Variant LineReader::literal()
{
    skipBlanks();
    if (rest_.empty()) throw Malformed{missing("a value")};
    if (rest_.front() == '"') return quotedText();
    if (rest_.front() == '[') {
        basic::Array array;
        rest_.remove_prefix(1);
        skipBlanks();
        if (!rest_.empty() && rest_.front() == ']') {
            rest_.remove_prefix(1);
            return array;
        }
        for (;;) {
            array.elements.push_back(literal());
            skipBlanks();
            if (rest_.empty()) throw Malformed{"']' is missing"};
            const char sign = rest_.front();
            rest_.remove_prefix(1);
            if (sign == ']') return array;
            if (sign != ',') throw Malformed{"',' or ']' expected in an array"};
        }
    }
    std::size_t length = 0;
    while (length < rest_.size() && !isBlank(rest_[length]) && rest_[length] != ',' && rest_[length] != ']')
        ++length;
    const std::string_view text = rest_.substr(0, length);
    rest_.remove_prefix(length);
    if (text == "true") return true;
    if (text == "false") return false;
    return numberValue(text);
}

basic::Variant LineReader::value(std::string_view what)
{
    if (atEnd()) throw Malformed{missing(what)};
    basic::Variant result = literal();
    if (!rest_.empty() && !isBlank(rest_.front()))
        throw Malformed{"'" + std::string{rest_} + "' does not belong to a value"};
    return result;
}

double LineReader::number(std::string_view what)
{
    const std::string text = word(what);
    const std::optional<double> number = numberOf(text);
    if (!number) throw Malformed{std::string{what} + " '" + text + "' is no number"};
    return *number;
}

std::int16_t LineReader::whole(std::string_view what, std::int16_t lowest, std::int16_t highest)
{
    const std::string text = word(what);
    const std::optional<double> number = numberOf(text);
    if (!number || text.find('.') != std::string::npos)
        throw Malformed{std::string{what} + " '" + text + "' is no whole number"};
    if (*number < lowest || *number > highest)
        throw Malformed{std::string{what} + " " + text + " is not between "
            + basic::decimal(std::int32_t{lowest}) + " and " + basic::decimal(std::int32_t{highest})};
    return static_cast<std::int16_t>(*number);
}

void LineReader::sign(char expected)
{
    skipBlanks();
    if (rest_.empty() || rest_.front() != expected)
        throw Malformed{"'" + std::string{expected} + "' is missing"};
    rest_.remove_prefix(1);
}

std::string_view LineReader::remainder()
{
    skipBlanks();
    return std::exchange(rest_, {});
}

void LineReader::end()
{
    if (!atEnd()) throw Malformed{"'" + std::string{rest_} + "' is too much"};
}

} // namespace servopanel::recording

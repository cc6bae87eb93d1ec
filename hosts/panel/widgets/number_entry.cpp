#include "panel/widgets/number_entry.h"

#include "basic/conversions.h"
#include "basic/error.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace servopanel::panel {

namespace {
constexpr std::size_t longest = 12; // characters that the display of the mask holds

int decimalsOf(const std::string& text)
{
    const std::size_t mantissa = std::min(text.find('E'), text.size());
    const std::size_t point = text.find('.');
    int decimals = point < mantissa ? static_cast<int>(mantissa - point - 1) : 0;
    if (mantissa < text.size()) decimals -= std::atoi(text.c_str() + mantissa + 1);
    constexpr int most = 15; // digits that a double keeps
    return std::clamp(decimals, 0, most);
}

int decimalsOf(const std::optional<double>& limit) { return limit ? decimalsOf(basic::decimal(*limit)) : 0; }

} // namespace

void NumberEntry::start(const std::string& number)
{
    text_ = number;
    first_ = value();
    firstDecimals_ = decimalsOf(text_);
    fresh_ = true;
    keepsSign_ = false;
    setLimits({}, {});
}

void NumberEntry::setLimits(std::optional<double> lower, std::optional<double> upper)
{
    lower_ = lower;
    upper_ = upper;
    decimals_ = std::max({firstDecimals_, decimalsOf(lower), decimalsOf(upper)});
}

bool NumberEntry::hasExponent() const { return text_.find('E') != std::string::npos; }

void NumberEntry::begin()
{
    // No key changes an exponent: what is typed begins a number of its own.
    if (fresh_ || hasExponent()) text_.resize(keepsSign_ && text_.starts_with('-') ? 1 : 0);
    fresh_ = false;
}

void NumberEntry::digit(int digit)
{
    begin();
    if (text_ == "0") text_.clear();
    if (text_ == "-0") text_ = "-";
    if (text_.size() < longest) text_ += static_cast<char>('0' + digit);
}

void NumberEntry::point()
{
    begin();
    if (text_.find('.') != std::string::npos || text_.size() + 2 > longest) return;
    if (text_.empty() || text_ == "-") text_ += '0';
    text_ += '.';
}

NumberEntry::Verdict NumberEntry::sign()
{
    if (!signAllowed()) return Verdict::NoSign;
    // On a keyboard the sign comes before the digits, on the key pad often after them.
    keepsSign_ = true;
    if (!text_.empty() && text_.front() == '-') {
        text_.erase(0, 1);
    } else if (text_.size() < longest) {
        text_.insert(0, 1, '-');
    }
    return Verdict::Fine;
}

void NumberEntry::back()
{
    fresh_ = false;
    // One character less of "1E-05" would be another number, a hundred thousand times as large in the end.
    if (hasExponent())
        text_.clear();
    else if (!text_.empty())
        text_.pop_back();
}

void NumberEntry::clear()
{
    fresh_ = false;
    text_.clear();
}

void NumberEntry::step(int places)
{
    // Counted in units of the last place, so that 0.1 three times up is 0.3 and nothing beside it.
    const double unit = std::pow(10.0, std::max(decimals_, decimalsOf(text_)));
    double next = (std::round(value().value_or(0) * unit) + places) / unit;
    if (upper_) next = std::min(next, *upper_);
    if (lower_) next = std::max(next, *lower_);
    text_ = basic::decimal(next);
    fresh_ = false;
}

std::optional<double> NumberEntry::value() const
{
    if (text_.empty() || text_ == "-") return {};
    try {
        return basic::numberFromText(text_);
    } catch (const basic::Error&) {
        return {};
    }
}

NumberEntry::Verdict NumberEntry::verdict() const
{
    const std::optional<double> number = value();
    if (!number) return Verdict::NoNumber;
    if (lower_ && *number < *lower_) return Verdict::TooSmall;
    if (upper_ && *number > *upper_) return Verdict::TooLarge;
    return Verdict::Fine;
}

bool NumberEntry::changed() const
{
    const std::optional<double> number = value();
    return number && number != first_;
}

} // namespace servopanel::panel

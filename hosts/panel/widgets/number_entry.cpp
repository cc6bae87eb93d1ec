#include "panel/widgets/number_entry.h"

#include "basic/conversions.h"
#include "basic/error.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace servopanel::panel {

namespace {
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

NumberEntry::Verdict NumberEntry::digit(int digit)
{
    begin();
    if (text_ == "0") text_.clear();
    if (text_ == "-0") text_ = "-";
    if (text_.size() >= longest) return Verdict::TooLong;
    text_ += static_cast<char>('0' + digit);
    return Verdict::Fine;
}

NumberEntry::Verdict NumberEntry::point()
{
    if (whole_) return Verdict::NoFraction;
    begin();
    if (text_.find('.') != std::string::npos) return Verdict::Fine;
    if (text_.size() + 2 > longest) return Verdict::TooLong;
    if (text_.empty() || text_ == "-") text_ += '0';
    text_ += '.';
    return Verdict::Fine;
}

NumberEntry::Verdict NumberEntry::sign()
{
    if (!signAllowed()) return Verdict::NoSign;
    // On a keyboard the sign comes before the digits, on the key pad often after them.
    const bool isNegative = !text_.empty() && text_.front() == '-';
    if (!isNegative && text_.size() >= longest) return Verdict::TooLong;
    keepsSign_ = true;
    if (isNegative)
        text_.erase(0, 1);
    else
        text_.insert(0, 1, '-');
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

int NumberEntry::decimals() const { return whole_ ? 0 : std::max(decimals_, decimalsOf(text_)); }

void NumberEntry::step(int places)
{
    // Counted in units of the last place, so that 0.1 three times up is 0.3 and nothing beside it.
    const double unit = std::pow(10.0, decimals());
    double next = (std::round(value().value_or(0) * unit) + places) / unit;
    // A limit between two whole numbers is not one that the value can have.
    if (upper_) next = std::min(next, whole_ ? std::floor(*upper_) : *upper_);
    if (lower_) next = std::max(next, whole_ ? std::ceil(*lower_) : *lower_);
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
    if (whole_ && *number != std::floor(*number)) return Verdict::NoFraction;
    return Verdict::Fine;
}

bool NumberEntry::changed() const
{
    const std::optional<double> number = value();
    return number && number != first_;
}

} // namespace servopanel::panel

#include "panel/trends/sampler.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "panel/form/vws_var.h"

#include <array>
#include <cmath>
#include <limits>

namespace servopanel::panel {

namespace {

// The machine's program names the arrays of actual values so, whatever servo and page they belong to.
constexpr std::string_view actualValues = "_servo_diag_";
// One row for each read of the sampler and of the page.
constexpr std::size_t mostRows =
    static_cast<std::size_t>(Sampler::longestSpan * (1000.0 / Sampler::periodMs + 2));

double numberOf(const basic::Variant& array, std::int32_t index)
{
    try {
        const basic::Variant& element = basic::element(array, index);
        // A text that looks like a number is none: the machine writes names of axes into the same table.
        if (isNumber(element)) return basic::toDouble(element);
    } catch (const basic::Error&) { // shorter than the page
    }
    return std::numeric_limits<double>::quiet_NaN();
}

} // namespace

Sampler::Sampler(Read read, Clock clock)
    : read_{std::move(read)}
    , clock_{std::move(clock)}
    , history_{values, mostRows}
{
}

bool Sampler::seen(std::string_view name, const basic::Variant* value)
{
    if (name.find(actualValues) == std::string_view::npos) return false;
    if (name != variable_) {
        variable_ = name;
        history_.clear();
        if (changed_) changed_();
    }
    add(value);
    return true;
}

void Sampler::sample()
{
    if (variable_.empty()) return;
    try {
        const basic::Variant value = read_(variable_);
        add(&value);
    } catch (const basic::Error&) {
        add(nullptr); // the page's own read reports it
    }
}

void Sampler::add(const basic::Variant* value)
{
    std::array<double, values> row{};
    for (std::size_t i = 0; i < row.size(); ++i) {
        const double number = value == nullptr ? std::numeric_limits<double>::quiet_NaN()
                                               : numberOf(*value, static_cast<std::int32_t>(i));
        row[i] = std::isfinite(number) ? number : std::numeric_limits<double>::quiet_NaN();
    }
    history_.add(clock_(), row);
}

} // namespace servopanel::panel

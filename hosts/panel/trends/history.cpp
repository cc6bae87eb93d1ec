#include "panel/trends/history.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace servopanel::panel {

namespace {
constexpr double none = std::numeric_limits<double>::quiet_NaN();
}

History::History(std::size_t columns, std::size_t mostRows)
    : columns_{columns}
    , times_(std::max<std::size_t>(1, mostRows))
    , values_(times_.size() * columns, none)
{
}

void History::add(double seconds, std::span<const double> values)
{
    if (rows_ > 0 && seconds < time(rows_ - 1)) return;
    if (rows_ == times_.size())
        oldest_ = (oldest_ + 1) % times_.size();
    else
        ++rows_;
    const std::size_t place = at(rows_ - 1);
    times_[place] = seconds;
    for (std::size_t column = 0; column < columns_; ++column)
        values_[place * columns_ + column] = column < values.size() ? values[column] : none;
}

void History::clear()
{
    oldest_ = 0;
    rows_ = 0;
}

double History::newest(std::size_t column) const
{
    return rows_ == 0 || column >= columns_ ? none : value(rows_ - 1, column);
}

std::size_t History::firstSince(double seconds) const
{
    std::size_t first = 0;
    std::size_t behind = rows_;
    while (first < behind) {
        const std::size_t middle = first + (behind - first) / 2;
        if (time(middle) < seconds)
            first = middle + 1;
        else
            behind = middle;
    }
    return first;
}

} // namespace servopanel::panel

#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace servopanel::panel {

// What the elements of one array variable were lately: rows of values in the order of their time, the oldest given up
// when it is full. Times are seconds of a clock that never jumps; a value that could not be had is NaN.
class History {
public:
    History(std::size_t columns, std::size_t mostRows);

    // Missing values are NaN, surplus ones are left out. A time before the newest one is not taken.
    void add(double seconds, std::span<const double> values);
    void clear();

    std::size_t columns() const { return columns_; }
    std::size_t rows() const { return rows_; }
    // Row 0 is the oldest.
    double time(std::size_t row) const { return times_[at(row)]; }
    double value(std::size_t row, std::size_t column) const { return values_[at(row) * columns_ + column]; }
    // NaN when there is none.
    double newest(std::size_t column) const;
    // The first row that is not older; rows() when there is none.
    std::size_t firstSince(double seconds) const;

private:
    std::size_t at(std::size_t row) const { return (oldest_ + row) % times_.size(); }

    std::size_t columns_;
    std::vector<double> times_;
    std::vector<double> values_; // row by row
    std::size_t oldest_ = 0;
    std::size_t rows_ = 0;
};

} // namespace servopanel::panel

#pragma once

#include "params/parameter_set.h"

#include <string>
#include <vector>

namespace servopanel::params {

// Rows that an engineer chose: by "servo_para:3", by the family alone, or by the name of a row without regard to case.
class Selection {
public:
    // Nothing in only: all rows but those of except.
    Selection(std::vector<std::string> only, std::vector<std::string> except);

    bool admits(const Row& row) const;
    // The choices that are met by no row: misspelt, most likely.
    std::vector<std::string> withoutRow(const std::vector<Row>& rows) const;

private:
    std::vector<std::string> only_;
    std::vector<std::string> except_;
};

// "servo_para:3"
std::string placeText(const Place& place);

} // namespace servopanel::params

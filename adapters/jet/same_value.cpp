#include "jet/same_value.h"

#include <bit>
#include <cstdint>

namespace servopanel::jet {

bool sameValue(const basic::Variant& left, const basic::Variant& right)
{
    if (left.type() != right.type()) return false;
    if (const auto* number = left.get<double>())
        return std::bit_cast<std::uint64_t>(*number) == std::bit_cast<std::uint64_t>(*right.get<double>());
    if (const auto* number = left.get<float>())
        return std::bit_cast<std::uint32_t>(*number) == std::bit_cast<std::uint32_t>(*right.get<float>());
    if (const auto* date = left.get<basic::Date>())
        return std::bit_cast<std::uint64_t>(date->days)
            == std::bit_cast<std::uint64_t>(right.get<basic::Date>()->days);
    return left == right;
}

} // namespace servopanel::jet

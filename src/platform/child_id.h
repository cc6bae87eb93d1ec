#pragma once

#include <cstdint>
#include <string_view>

namespace servopanel::platform {

// Name of a child control and, for an element of a control array, its index. Names compare exactly.
struct ChildId {
    static constexpr std::int16_t noIndex = -1;

    std::string_view name;
    std::int16_t index = noIndex;

    constexpr bool hasIndex() const { return index != noIndex; }
    friend constexpr bool operator==(ChildId, ChildId) = default;
};

} // namespace servopanel::platform

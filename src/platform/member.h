#pragma once

#include "basic/variant.h"

#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

namespace servopanel::platform {

enum class MemberKind { Property, Method };

// A member of a control: by dispatch id, which is the contract with the control, or by property name (compared without
// regard to case, dotted as in "Font.Size"). The name of an id is for people only.
struct Member {
    static constexpr std::int32_t byName = std::numeric_limits<std::int32_t>::min();

    std::int32_t id = byName;
    std::string_view name;
    MemberKind kind = MemberKind::Property;

    constexpr bool isNamed() const { return id == byName; }
};

constexpr Member named(std::string_view name) { return {Member::byName, name, MemberKind::Property}; }
constexpr Member property(std::uint32_t id, std::string_view name)
{
    return {static_cast<std::int32_t>(id), name, MemberKind::Property};
}
constexpr Member method(std::uint32_t id, std::string_view name)
{
    return {static_cast<std::int32_t>(id), name, MemberKind::Method};
}

using Args = std::span<const basic::Variant>;

} // namespace servopanel::platform

#pragma once

#include "basic/conversions.h"
#include "basic/text.h"
#include "platform/form_data.h"

#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace servopanel::testing {

inline std::string nameOf(platform::ChildId id)
{
    std::string name{id.name};
    if (id.hasIndex()) name += "(" + basic::decimal(std::int32_t{id.index}) + ")";
    return name;
}

inline std::string textOf(const platform::FirstValue& first)
{
    return std::visit(
        [](const auto& value) -> std::string {
            using T = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<T, bool>)
                return value ? "true" : "false";
            else if constexpr (std::is_same_v<T, std::string_view>)
                return std::string{value};
            else if constexpr (std::is_same_v<T, float>)
                return basic::decimal(value);
            else
                return basic::decimal(std::int32_t{value});
        },
        first.value);
}

// A form as a table, a line for each child:
//
//   IstWert(101) in DetailBox: VWSVarOut, Left 5010, Top 60
inline std::string textOf(platform::FormData form)
{
    std::string text;
    for (const platform::FormChild& child : form) {
        text += nameOf(child.id);
        if (!child.parent.name.empty()) text += " in " + nameOf(child.parent);
        text += ": " + std::string{child.className};
        for (const platform::FirstValue& first : child.values)
            text += ", " + std::string{first.property} + " " + textOf(first);
        text += "\n";
    }
    return text;
}

} // namespace servopanel::testing

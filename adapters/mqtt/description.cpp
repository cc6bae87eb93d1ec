#include "mqtt/description.h"

#include "basic/conversions.h"
#include "mqtt/messages.h"

#include <algorithm>

namespace servopanel::mqtt {

basic::Variant VariableDescription::blank() const
{
    const basic::Variant zero = type.element == basic::VariantType::Text
        ? basic::Variant{""}
        : basic::convert(std::int16_t{0}, type.element);
    if (!type.array) return zero;
    return basic::Array{type.element, first, std::vector<basic::Variant>(length, zero)};
}

std::int16_t VariableDescription::levelOf(std::size_t element) const
{
    if (levels.empty()) return 0;
    return levels[std::min(element, levels.size() - 1)];
}

bool VariableDescription::hasBits() const
{
    return !type.array
        && (type.element == basic::VariantType::Int16 || type.element == basic::VariantType::Int32);
}

Description::Description(std::vector<VariableDescription> variables)
{
    for (VariableDescription& variable : variables) {
        if (!indices_.emplace(variable.name, variables_.size()).second) continue;
        variables_.push_back(std::move(variable));
    }
}

std::optional<std::size_t> Description::indexOf(std::string_view name) const
{
    const auto found = indices_.find(name);
    if (found == indices_.end()) return {};
    return found->second;
}

std::string Description::hash() const
{
    // FNV-1a, 64 bits.
    std::uint64_t hash = 0xcbf29ce484222325;
    const auto take = [&](std::string_view text) {
        for (const char c : text)
            hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    };
    take(write(DescriptionPart{"", 0, 1, variables_}));
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (int shift = 60; shift >= 0; shift -= 4)
        text += digits[hash >> shift & 15];
    return text;
}

} // namespace servopanel::mqtt

#include "machine/json_object.h"

#include "basic/conversions.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace servopanel::machine {

JsonObject::JsonObject(
    const Json& json, const std::string& file, std::string path, std::vector<Problem>& problems)
    : json_{json}
    , file_{file}
    , path_{std::move(path)}
    , problems_{problems}
{
    if (!json_.is_object()) problem("", "must be an object in braces");
}

std::optional<double> JsonObject::number(const char* member, Need need, double least, double most)
{
    const Json* const value = take(member, need);
    if (!value) return std::nullopt;
    if (!value->is_number()) {
        problem(member, "must be a number");
        return std::nullopt;
    }
    const double number = value->get<double>();
    if (number < least || number > most) {
        problem(member, basic::decimal(number) + " is out of range");
        return std::nullopt;
    }
    return number;
}

std::optional<std::int64_t> JsonObject::whole(
    const char* member, Need need, std::int64_t least, std::int64_t most)
{
    const Json* const value = take(member, need);
    if (!value) return std::nullopt;
    if (!value->is_number_integer()) {
        problem(member, "must be a whole number");
        return std::nullopt;
    }
    const bool tooLarge = value->is_number_unsigned()
        && value->get<std::uint64_t>() > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    const std::int64_t number = tooLarge ? 0 : value->get<std::int64_t>();
    if (tooLarge || number < least || number > most) {
        problem(member, "must be from " + std::to_string(least) + " to " + std::to_string(most));
        return std::nullopt;
    }
    return number;
}

std::optional<std::string> JsonObject::text(const char* member, Need need)
{
    const Json* const value = take(member, need);
    if (!value) return std::nullopt;
    if (value->is_string()) return value->get<std::string>();
    problem(member, "must be a text in quotes");
    return std::nullopt;
}

std::optional<bool> JsonObject::boolean(const char* member, Need need)
{
    const Json* const value = take(member, need);
    if (!value) return std::nullopt;
    if (value->is_boolean()) return value->get<bool>();
    problem(member, "must be true or false");
    return std::nullopt;
}

const Json* JsonObject::array(const char* member, Need need)
{
    const Json* const value = take(member, need);
    if (!value || value->is_array()) return value;
    problem(member, "must be a list in brackets");
    return nullptr;
}

const Json* JsonObject::object(const char* member, Need need)
{
    const Json* const value = take(member, need);
    if (!value || value->is_object()) return value;
    problem(member, "must be an object in braces");
    return nullptr;
}

void JsonObject::problem(const std::string& member, const std::string& reason)
{
    failed_ = true;
    problems_.push_back({file_, member.empty() ? path_ : pathOf(member), reason});
}

std::string JsonObject::pathOf(const std::string& member) const { return path_ + "/" + member; }

void JsonObject::finish()
{
    if (!json_.is_object()) return;
    for (const auto& member : json_.items())
        if (taken_.count(member.key()) == 0)
            problems_.push_back({file_, pathOf(member.key()), "is not known here"});
}

void JsonObject::takeRest()
{
    if (!json_.is_object()) return;
    for (const auto& member : json_.items())
        taken_.insert(member.key());
}

const Json* JsonObject::take(const char* member, Need need)
{
    taken_.insert(member);
    if (!json_.is_object()) return nullptr;
    const auto found = json_.find(member);
    if (found != json_.end()) return &*found;
    if (need == Need::Required) problem(member, "is missing");
    return nullptr;
}

} // namespace servopanel::machine

#include "mqtt/bounded_json.h"

#include "mqtt/protocol_error.h"

#include <limits>
#include <set>
#include <vector>

namespace servopanel::mqtt {

namespace {

// Goes through a text without keeping any of it, and stops at the first excess.
class Measure : public nlohmann::json_sax<Json> {
public:
    explicit Measure(const Bounds& bounds)
        : bounds_{bounds}
    {
    }

    const std::string& complaint() const { return complaint_; }

    bool null() override { return count(); }
    bool boolean(bool) override { return count(); }
    bool number_integer(number_integer_t) override { return count(); }
    bool number_unsigned(number_unsigned_t) override { return count(); }
    bool number_float(number_float_t, const string_t&) override { return count(); }
    bool string(string_t& text) override { return isShort(text) && count(); }
    bool binary(binary_t&) override { return false; }
    bool start_object(std::size_t) override { return count() && open(); }
    bool key(string_t& name) override
    {
        // Readers differ in which of two they take.
        return isShort(name) && (open_.back().names.insert(name).second || complain("two members " + name));
    }
    bool end_object() override { return close(); }
    bool start_array(std::size_t) override { return count() && open(); }
    bool end_array() override { return close(); }
    bool parse_error(std::size_t position, const std::string&, const nlohmann::detail::exception&) override
    {
        return complain("no JSON from byte " + std::to_string(position) + " on");
    }

private:
    bool complain(std::string reason)
    {
        if (complaint_.empty()) complaint_ = std::move(reason);
        return false;
    }
    bool count()
    {
        if (open_.empty() || ++open_.back().count <= bounds_.elements) return true;
        return complain("more than " + std::to_string(bounds_.elements) + " elements in one list");
    }
    bool open()
    {
        open_.emplace_back();
        return open_.size() <= bounds_.depth
            || complain("nested deeper than " + std::to_string(bounds_.depth));
    }
    bool close()
    {
        open_.pop_back();
        return true;
    }
    bool isShort(const std::string& text)
    {
        return text.size() <= bounds_.textBytes
            || complain("a text longer than " + std::to_string(bounds_.textBytes) + " bytes");
    }

    const Bounds& bounds_;
    struct List {
        std::size_t count = 0; // elements so far
        std::set<std::string> names; // of an object's members
    };
    std::vector<List> open_;
    std::string complaint_;
};

} // namespace

Json parseBounded(std::string_view topic, std::string_view payload, const Bounds& bounds)
{
    if (payload.size() > bounds.bytes)
        throw ProtocolError{topic, "longer than " + std::to_string(bounds.bytes) + " bytes"};
    Measure measure{bounds};
    if (!Json::sax_parse(payload, &measure)) throw ProtocolError{topic, measure.complaint()};
    Json json = Json::parse(payload, nullptr, false);
    if (!json.is_object()) throw ProtocolError{topic, "no JSON object"};
    return json;
}

Members::Members(std::string_view topic, const Json& object)
    : topic_{topic}
    , object_{object}
{
    if (!object.is_object()) throw ProtocolError{topic, "an object is expected"};
}

const Json& Members::any(const char* member) const
{
    const auto found = object_.find(member);
    if (found == object_.end()) fail(member, "is missing");
    return *found;
}

const Json& Members::array(const char* member) const
{
    const Json& json = any(member);
    if (!json.is_array()) fail(member, "must be a list");
    return json;
}

std::string Members::text(const char* member) const
{
    const Json& json = any(member);
    if (!json.is_string()) fail(member, "must be a text");
    return json.get<std::string>();
}

std::string Members::textOr(const char* member, std::string_view otherwise) const
{
    return has(member) ? text(member) : std::string{otherwise};
}

bool Members::boolean(const char* member) const
{
    const Json& json = any(member);
    if (!json.is_boolean()) fail(member, "must be true or false");
    return json.get<bool>();
}

bool Members::booleanOr(const char* member, bool otherwise) const
{
    return has(member) ? boolean(member) : otherwise;
}

std::int64_t Members::whole(const char* member, std::int64_t least, std::int64_t most) const
{
    const Json& json = any(member);
    if (!isWholeWithin(json, least, most))
        fail(member, "must be a whole number, " + std::to_string(least) + " to " + std::to_string(most));
    return json.get<std::int64_t>();
}

std::int64_t Members::wholeOr(
    const char* member, std::int64_t least, std::int64_t most, std::int64_t otherwise) const
{
    return has(member) ? whole(member, least, most) : otherwise;
}

void Members::fail(const char* member, std::string_view reason) const
{
    throw ProtocolError{topic_, std::string{member}.append(" ").append(reason)};
}

bool isWholeWithin(const Json& json, std::int64_t least, std::int64_t most)
{
    if (!json.is_number_integer()) return false;
    if (json.is_number_unsigned()
        && json.get<std::uint64_t>() > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()))
        return false;
    const auto value = json.get<std::int64_t>();
    return value >= least && value <= most;
}

} // namespace servopanel::mqtt

#pragma once

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace servopanel::mqtt {

using Json = nlohmann::json;

// What a message may hold at most. Measured before anything is built from it, so that whoever can send to the broker
// cannot make a panel or a controller run out of memory or stack.
struct Bounds {
    std::size_t bytes = 256 * 1024;
    std::size_t depth = 6;
    std::size_t elements = 10'000; // of one array or object
    std::size_t textBytes = 1024; // of one text or member name
};

// Throws ProtocolError for what is no JSON object or exceeds the bounds.
Json parseBounded(std::string_view topic, std::string_view payload, const Bounds& bounds = {});

// Takes the members of a message's object; a missing one or one of another kind is a ProtocolError that names topic and
// member. Members that nobody asks for are ignored: newer senders may know more.
class Members {
public:
    Members(std::string_view topic, const Json& object);

    bool has(const char* member) const { return object_.contains(member); }
    const Json& any(const char* member) const;
    const Json& array(const char* member) const;
    std::string text(const char* member) const;
    std::string textOr(const char* member, std::string_view otherwise) const;
    bool boolean(const char* member) const;
    bool booleanOr(const char* member, bool otherwise) const;
    std::int64_t whole(const char* member, std::int64_t least, std::int64_t most) const;
    std::int64_t wholeOr(
        const char* member, std::int64_t least, std::int64_t most, std::int64_t otherwise) const;

    [[noreturn]] void fail(const char* member, std::string_view reason) const;

private:
    std::string_view topic_;
    const Json& object_;
};

// Whether a JSON number is whole and within these.
bool isWholeWithin(const Json& json, std::int64_t least, std::int64_t most);

} // namespace servopanel::mqtt

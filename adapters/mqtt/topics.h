#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace servopanel::mqtt {

// The topics of a machine: pm/v1/<machine>/<kind>[/<of>]. The names of machines, panels and variables are escaped, so
// that none of them can become a wildcard or two levels.
struct Topic {
    std::string machine;
    std::string kind; // "state", "desc", "val", "hb", "get", "cmd", "ack", "fault"
    std::string of; // desc: the part's number; val: the variable; get, cmd, ack: the panel; else empty

    std::string text() const;
    // Nothing for a topic that is not one of ours.
    static std::optional<Topic> parse(std::string_view text);
};

// All topics of a kind of a machine, or with of = "+" those of everybody, as a subscription writes it.
std::string topicFilter(std::string_view machine, std::string_view kind, bool ofEverything = false);

} // namespace servopanel::mqtt

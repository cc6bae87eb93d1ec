#include "mqtt/topics.h"

#include <mosquitto.h>

#include <algorithm>
#include <vector>

namespace servopanel::mqtt {

namespace {

constexpr std::string_view start = "pm/v1/";
constexpr std::string_view digits = "0123456789ABCDEF";

// Bytes of the first character when it may stand in a topic as it is, else 0: then its first byte is escaped.
std::size_t plainCharacter(std::string_view name)
{
    const auto lead = static_cast<unsigned char>(name.front());
    if (std::string_view{"/+#%"}.find(name.front()) != std::string_view::npos) return 0;
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length > name.size()) return 0;
    // Also refuses what is valid UTF-8 and no broker takes: control characters and those that are none.
    return mosquitto_validate_utf8(name.data(), static_cast<int>(length)) == MOSQ_ERR_SUCCESS ? length : 0;
}

std::string escaped(std::string_view name)
{
    std::string text;
    while (!name.empty()) {
        const std::size_t length = plainCharacter(name);
        if (length > 0)
            text += name.substr(0, length);
        else {
            const auto byte = static_cast<unsigned char>(name.front());
            text += '%';
            text += digits[byte >> 4];
            text += digits[byte & 15];
        }
        name.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return text;
}

std::optional<std::string> unescaped(std::string_view text)
{
    std::string name;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            name += text[i];
            continue;
        }
        if (i + 2 >= text.size()) return {};
        const std::size_t high = digits.find(text[i + 1]);
        const std::size_t low = digits.find(text[i + 2]);
        if (high == std::string_view::npos || low == std::string_view::npos) return {};
        name += static_cast<char>(high << 4 | low);
        i += 2;
    }
    return name;
}

bool takesName(std::string_view kind)
{
    return kind == "desc" || kind == "val" || kind == "get" || kind == "cmd" || kind == "ack";
}

} // namespace

std::string Topic::text() const
{
    std::string text{start};
    text.append(escaped(machine)).append("/").append(kind);
    if (!of.empty()) text.append("/").append(escaped(of));
    return text;
}

std::optional<Topic> Topic::parse(std::string_view text)
{
    if (text.substr(0, start.size()) != start) return {};
    text.remove_prefix(start.size());
    std::vector<std::string_view> levels;
    for (std::size_t slash = 0; slash != std::string_view::npos;) {
        slash = text.find('/');
        levels.push_back(text.substr(0, slash));
        if (slash != std::string_view::npos) text.remove_prefix(slash + 1);
    }
    if (levels.size() < 2 || levels.size() > 3 || levels[0].empty()) return {};
    if ((levels.size() == 3) != takesName(levels[1])) return {};
    const auto machine = unescaped(levels[0]);
    const auto of = unescaped(levels.size() == 3 ? levels[2] : std::string_view{});
    if (!machine || !of || (levels.size() == 3 && of->empty())) return {};
    return Topic{*machine, std::string{levels[1]}, *of};
}

std::string topicFilter(std::string_view machine, std::string_view kind, bool ofEverything)
{
    std::string filter = Topic{std::string{machine}, std::string{kind}, {}}.text();
    if (ofEverything) filter += "/+";
    return filter;
}

} // namespace servopanel::mqtt

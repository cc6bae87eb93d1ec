#include "check/json_lines.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <vector>

namespace servopanel::check {

namespace {

// A project is nowhere as deep; a file of brackets alone must not take all memory for its paths.
constexpr std::size_t deepest = 20;

// What is around the place that is being read.
struct Level {
    std::string path;
    bool isArray = false;
    std::size_t next = 0; // number of the next entry of an array
    bool wantsKey = true; // of an object
};

class Scanner {
public:
    Scanner(std::string_view text, std::map<std::string, int, std::less<>>& lines)
        : text_{text}
        , lines_{lines}
    {
    }

    void run()
    {
        while (at_ < text_.size()) {
            const char sign = text_[at_];
            if (sign == '"')
                text();
            else if (sign == '{' || sign == '[')
                open(sign == '[');
            else if (sign == '}' || sign == ']')
                close();
            else if (sign == ',')
                comma();
            else if (sign == ':' || sign == ' ' || sign == '\t' || sign == '\r' || sign == '\n')
                step();
            else
                word();
        }
    }

private:
    void step()
    {
        if (text_[at_] == '\n') ++line_;
        ++at_;
    }

    // The path of the value that begins here; noted for the entries of a list, for members it was with the key.
    std::string valuePath()
    {
        if (levels_.empty()) return {};
        Level& level = levels_.back();
        if (levels_.size() > deepest) return level.path;
        if (!level.isArray) return level.path + '/' + key_;
        const std::string path = level.path + '/' + std::to_string(level.next);
        lines_[path] = line_;
        return path;
    }

    void open(bool isArray)
    {
        levels_.push_back({valuePath(), isArray});
        ++at_;
    }

    void close()
    {
        if (!levels_.empty()) levels_.pop_back();
        ++at_;
    }

    void comma()
    {
        if (!levels_.empty()) {
            ++levels_.back().next;
            levels_.back().wantsKey = true;
        }
        ++at_;
    }

    void word()
    {
        valuePath();
        while (
            at_ < text_.size() && std::string_view{",]}: \t\r\n"}.find(text_[at_]) == std::string_view::npos)
            ++at_;
    }

    void text()
    {
        const int line = line_;
        const std::size_t start = at_++;
        while (at_ < text_.size() && text_[at_] != '"') {
            if (text_[at_] == '\\' && at_ + 1 < text_.size()) ++at_;
            step();
        }
        if (at_ < text_.size()) ++at_;
        const bool isKey = !levels_.empty() && !levels_.back().isArray && levels_.back().wantsKey;
        if (!isKey) {
            valuePath();
            return;
        }
        // Escapes are JSON's own affair.
        const auto key = nlohmann::json::parse(text_.substr(start, at_ - start), nullptr, false);
        key_ = key.is_string() ? key.get<std::string>() : std::string{};
        levels_.back().wantsKey = false;
        if (levels_.size() <= deepest) lines_[levels_.back().path + '/' + key_] = line;
    }

    std::string_view text_;
    std::map<std::string, int, std::less<>>& lines_;
    std::size_t at_ = 0;
    int line_ = 1;
    std::vector<Level> levels_;
    std::string key_;
};

} // namespace

JsonLines::JsonLines(std::string_view text) { Scanner{text, lines_}.run(); }

int JsonLines::line(std::string_view path) const
{
    while (!path.empty()) {
        const auto found = lines_.find(path);
        if (found != lines_.end()) return found->second;
        path = path.substr(0, path.rfind('/'));
    }
    return 0;
}

} // namespace servopanel::check

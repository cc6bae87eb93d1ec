#pragma once

#include "basic/variant.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace servopanel::recording {

// Why a line of a scenario cannot be played.
struct Malformed {
    std::string reason;
};

// Takes a line of a scenario apart from left to right. Everything raises Malformed.
class LineReader {
public:
    explicit LineReader(std::string_view line)
        : rest_{line}
    {
    }

    bool atEnd();
    // The next token; in double quotes it may hold blanks, and quotes that are doubled. what: for the reason.
    std::string word(std::string_view what);
    // Like word, without taking it.
    std::string peek();
    // 12, 12.5, "text", true, false, [v, v, ...]
    basic::Variant value(std::string_view what);
    double number(std::string_view what);
    std::int16_t whole(std::string_view what, std::int16_t lowest, std::int16_t highest);
    void sign(char expected);
    // Everything that is left, without the blanks before it.
    std::string_view remainder();
    // Nothing may follow.
    void end();

private:
    std::string_view token();
    std::string quotedText();
    basic::Variant literal();
    void skipBlanks();

    std::string_view rest_;
};

} // namespace servopanel::recording

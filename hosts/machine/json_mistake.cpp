#include "machine/json_mistake.h"

#include <algorithm>

namespace servopanel::machine {

namespace {

constexpr std::string_view blanks{" \t\r\n"};

bool isSign(char sign) { return std::string_view{"{}[]:,"}.find(sign) != std::string_view::npos; }

// Where the last sign before a place stands that is no blank; 0 when there is none.
std::size_t signBefore(std::string_view text, std::size_t end)
{
    const std::size_t at = text.substr(0, end).find_last_not_of(blanks);
    return at == std::string_view::npos ? 0 : at;
}

// Where the word, number, text or sign begins that ends before a place.
std::size_t beginOf(std::string_view text, std::size_t end)
{
    if (end == 0) return 0;
    std::size_t at = end - 1;
    if (text[at] == '"') {
        while (at > 0 && (text[--at] != '"' || (at > 0 && text[at - 1] == '\\'))) { }
        return at;
    }
    if (isSign(text[at])) return at;
    while (at > 0 && blanks.find(text[at - 1]) == std::string_view::npos && !isSign(text[at - 1])
        && text[at - 1] != '"')
        --at;
    return at;
}

// "\"level\"": what stands at a place, short enough for a message.
std::string shown(std::string_view text, std::size_t begin, std::size_t end)
{
    constexpr std::size_t most = 40;
    // A word is taken to its end, of which the parser reads the first sign only.
    while (end < text.size() && text[end - 1] != '"' && !isSign(text[begin]) && !isSign(text[end])
        && blanks.find(text[end]) == std::string_view::npos)
        ++end;
    std::string part;
    if (isSign(text[begin])) part += '"';
    part += text.substr(begin, std::min(end - begin, most));
    if (isSign(text[begin])) part += '"';
    return part;
}

// Without what the parser puts before it: "[...] parse error at line 3, column 5: REASON" or "[...] REASON".
std::string plainReason(std::string_view what)
{
    for (const std::string_view start : {"[", "parse error at line "}) {
        const std::string_view end = start == "[" ? "] " : ": ";
        const std::size_t found = what.starts_with(start) ? what.find(end) : std::string_view::npos;
        if (found != std::string_view::npos) what.remove_prefix(found + end.size());
    }
    return std::string{what};
}

} // namespace

JsonMistake jsonMistake(std::string_view text, std::size_t read, std::string_view message)
{
    const std::size_t end = std::min(read, text.size());
    const std::size_t begin = beginOf(text, end);
    const std::size_t before = signBefore(text, begin);
    const auto says = [&](std::string_view words) { return message.find(words) != std::string_view::npos; };
    const auto here = [&] { return shown(text, begin, end); };
    const auto behind = [&] { return shown(text, beginOf(text, before + 1), before + 1); };

    if (text.find_first_not_of(blanks) == std::string_view::npos) return {0, "the file is empty"};
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"))
        return {0, "is in UTF-16; save the file as UTF-8"};
    if (const std::size_t zero = text.find('\0'); zero <= end && zero < text.size())
        return {zero, "has characters of the number 0: it is damaged, or not in UTF-8"};
    if (says("ill-formed UTF-8")) return {begin, "is not in UTF-8; save the file as UTF-8"};
    if (says("closing quote") || says("must be escaped"))
        return {signBefore(text, text.substr(0, end).find_last_not_of("\r\n") + 1),
            "a text has no closing quote (\")"};
    if (says("after backslash")) return {begin, "a backslash within a text is written twice (\\\\)"};
    const bool isCutWithin = says("invalid") && text.find_first_not_of(blanks, end) == std::string_view::npos;
    if (says("unexpected end of input") || isCutWithin)
        return {signBefore(text, text.size()), "the file breaks off here: a \"}\" or \"]\" is missing"};
    if (says("expected end of input")) return {begin, here() + " stands behind the end of the project"};
    const bool isClosing = says("unexpected '}'") || says("unexpected ']'");
    if (isClosing && text[before] == ',') return {before, "there is a comma too many before " + here()};
    if (says("object key")) return {begin, here() + " stands where a name in quotes belongs"};
    if (says("object separator")) return {before, "a colon is missing behind " + behind()};
    if (says("number overflow")) return {begin, here() + " is too large for a number"};
    // A number with zeros before it ends for the parser behind the first of them.
    const bool isTwoNumbers = says("unexpected number literal") && isSign(text[before]) && text[begin] == '0';
    if (says("invalid literal") || says("invalid number") || says("while parsing value") || isTwoNumbers)
        return {begin,
            here() + " is no value: that is a number, a text in quotes, true, false, a list or an object"};
    if (isClosing) return {begin, here() + " closes what another bracket has opened"};
    if (text[begin] == ':' && says("expected ']'"))
        return {signBefore(text, beginOf(text, before + 1)), "a \"]\" is missing before " + behind()};
    if (says("expected '}'")) return {before, "a comma is missing behind " + behind()};
    if (says("expected ']'")) return {before, "a comma or \"]\" is missing behind " + behind()};
    return {begin, plainReason(message)};
}

} // namespace servopanel::machine

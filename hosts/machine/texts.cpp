#include "machine/texts.h"

#include "basic/error.h"
#include "basic/lines.h"
#include "portable/text_decoding.h"
#include "portable/text_reading.h"
#include "portable/trimming.h"

#include <optional>
#include <utility>

namespace servopanel::machine {

namespace {

// A file that is no list of texts has a mistake in every line, and nobody reads so many.
constexpr std::size_t mostProblems = 100;

std::string lineNumber(std::size_t index) { return "line " + std::to_string(index + 1); }

// A file may have come together from several editors, so every line is judged by itself. The first one in another
// encoding is named, with the number of all of them.
std::vector<std::string> decoded(
    std::string_view bytes, const std::string& file, std::vector<Problem>& problems)
{
    const std::optional<std::string> utf16 = portable::fromUtf16(bytes);
    if (utf16) bytes = *utf16;
    std::vector<std::string> lines;
    std::size_t foreign = 0;
    std::size_t firstForeign = 0;
    std::optional<std::size_t> firstZero;
    basic::Lines parts{portable::withoutByteOrderMark(bytes)};
    while (const std::optional<std::string_view> line = parts.next()) {
        const bool isUtf8 = portable::isUtf8(*line);
        if (!isUtf8 && foreign++ == 0) firstForeign = lines.size();
        if (!firstZero && line->find('\0') != std::string_view::npos) firstZero = lines.size();
        lines.push_back(isUtf8 ? std::string{*line} : portable::fromWindows1252(*line));
    }
    if (foreign > 0)
        problems.push_back({file, lineNumber(firstForeign),
            "is not in UTF-8; read as Windows-1252"
                + (foreign > 1 ? ", like " + std::to_string(foreign - 1) + " more" : std::string{})
                + "; save the file as UTF-8"});
    if (firstZero)
        problems.push_back({file, lineNumber(*firstZero),
            "has characters of the number 0; UTF-16 needs a byte order mark; save the file as UTF-8"});
    return lines;
}

} // namespace

Texts Texts::load(const std::filesystem::path& file)
{
    const std::string name = file.filename().string();
    try {
        const portable::FileBytes content = portable::readFile(file, file.string());
        Texts texts = of(content.bytes, name);
        if (content.failure) texts.problems_.push_back({name, "", content.failure->description});
        return texts;
    } catch (const basic::Error& error) {
        Texts texts;
        texts.problems_.push_back({name, "", error.description});
        return texts;
    }
}

Texts Texts::of(std::string_view bytes, const std::string& file)
{
    std::vector<Problem> problems;
    Texts texts = fromLines(decoded(bytes, file, problems), file);
    texts.problems_.insert(texts.problems_.begin(), problems.begin(), problems.end());
    return texts;
}

Texts Texts::fromLines(const std::vector<std::string>& lines, const std::string& file)
{
    Texts texts;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const auto problem = [&](std::string reason) {
            if (texts.problems_.size() == mostProblems)
                reason = "and so on; the file holds something else than texts";
            if (texts.problems_.size() > mostProblems) return;
            texts.problems_.push_back({file, lineNumber(i), std::move(reason)});
        };
        const std::string_view line = portable::trimBlanks(lines[i]);
        if (line.empty() || line.front() == '#') continue;
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) {
            problem("no \"=\"; a line is \"key = text\"");
            continue;
        }
        const std::string_view key = portable::trimBlanks(line.substr(0, equals));
        if (key.empty()) {
            problem("no key before \"=\"");
            continue;
        }
        const std::string_view text =
            portable::withoutQuotes(portable::trimBlanks(line.substr(equals + 1)), "\"");
        const bool added = texts.texts_.insert_or_assign(std::string{key}, std::string{text}).second;
        texts.lines_.insert_or_assign(std::string{key}, static_cast<int>(i + 1));
        if (!added) problem("the key \"" + std::string{key} + "\" stands here again; this text counts");
    }
    return texts;
}

const std::string* Texts::find(std::string_view key) const
{
    const auto text = texts_.find(key);
    return text == texts_.end() ? nullptr : &text->second;
}

int Texts::line(std::string_view key) const
{
    const auto line = lines_.find(key);
    return line == lines_.end() ? 0 : line->second;
}

std::string Texts::text(std::string_view key) const
{
    const std::string* const found = find(key);
    return found ? *found : std::string{};
}

} // namespace servopanel::machine

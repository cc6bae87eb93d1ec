#include "machine/texts.h"

#include "basic/error.h"
#include "portable/text_decoding.h"
#include "portable/text_reading.h"
#include "portable/trimming.h"

#include <utility>

namespace servopanel::machine {

Texts Texts::load(const std::filesystem::path& file)
{
    const std::string name = file.filename().string();
    try {
        const portable::FileBytes content = portable::readFile(file, file.string());
        Texts texts = fromLines(portable::decodeLines(content.bytes), name);
        if (content.failure) texts.problems_.push_back({name, "", content.failure->description});
        return texts;
    } catch (const basic::Error& error) {
        Texts texts;
        texts.problems_.push_back({name, "", error.description});
        return texts;
    }
}

Texts Texts::fromLines(const std::vector<std::string>& lines, const std::string& file)
{
    Texts texts;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const auto problem = [&](std::string reason) {
            texts.problems_.push_back({file, "line " + std::to_string(i + 1), std::move(reason)});
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
        if (!added) problem("the key \"" + std::string{key} + "\" stands here again; this text counts");
    }
    return texts;
}

const std::string* Texts::find(std::string_view key) const
{
    const auto text = texts_.find(key);
    return text == texts_.end() ? nullptr : &text->second;
}

std::string Texts::text(std::string_view key) const
{
    const std::string* const found = find(key);
    return found ? *found : std::string{};
}

} // namespace servopanel::machine

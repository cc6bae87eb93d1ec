#include "recording/scenario/commands.h"
#include "recording/scenario/player.h"
#include "recording/scenario/scenario.h"

#include "portable/text_decoding.h"

#include <utility>

namespace servopanel::recording {

namespace {

std::string_view trimmed(std::string_view line)
{
    constexpr std::string_view blanks{" \t"};
    const std::size_t first = line.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return line.substr(first, line.find_last_not_of(blanks) - first + 1);
}

class Parser {
public:
    explicit Parser(std::string_view text)
        : lines_{portable::decodeLines(text)}
    {
    }

    std::vector<Step> parse()
    {
        std::vector<Step> steps;
        for (next_ = 0; next_ < lines_.size(); ++next_) {
            const std::size_t number = next_ + 1;
            const std::string text = lines_[next_];
            const std::string_view line = trimmed(text);
            if (line.empty() || line.front() == '#') continue;
            try {
                // Blanks at the end belong to the texts that take the rest of their line.
                steps.push_back(command(text, number));
            } catch (const Malformed& problem) {
                throw ScenarioError{number, problem.reason};
            }
        }
        return steps;
    }

private:
    Step command(std::string_view text, std::size_t number)
    {
        LineReader line{text};
        const std::string name = line.word("a command");
        if (name == "file") return {number, {}, file(line)};
        if (name == "on") return {number, std::string{trimmed(text)}, onPump(line, number)};
        if (auto action = setUpCommand(name, line)) {
            line.end();
            return {number, {}, std::move(*action)};
        }
        if (auto action = operationCommand(name, line)) {
            line.end();
            return {number, std::string{trimmed(text)}, std::move(*action)};
        }
        throw Malformed{"unknown command '" + name + "'"};
    }

    // The lines up to "end" as they stand.
    Action file(LineReader& line)
    {
        const std::string name = line.word("the file's name");
        line.end();
        if (isNested_) throw Malformed{"a file cannot be put there with 'on pump'"};
        std::string content;
        while (++next_ < lines_.size() && trimmed(lines_[next_]) != "end")
            content += lines_[next_] + "\n";
        if (next_ >= lines_.size()) throw Malformed{"'end' of the file is missing"};
        return [name, content](Player& player) { player.host().memoryProject().putText(name, content); };
    }

    Action onPump(LineReader& line, std::size_t number)
    {
        if (line.word("'pump'") != "pump") throw Malformed{"only 'on pump' is known"};
        const std::string_view rest = line.remainder();
        if (rest.empty()) throw Malformed{"a command is missing"};
        const bool wasNested = std::exchange(isNested_, true);
        Step step = command(rest, number);
        isNested_ = wasNested;
        return [step](Player& player) { player.atNextPump(step); };
    }

    std::vector<std::string> lines_;
    std::size_t next_ = 0;
    bool isNested_ = false;
};

} // namespace

std::vector<Step> parseScenario(std::string_view text) { return Parser{text}.parse(); }

} // namespace servopanel::recording

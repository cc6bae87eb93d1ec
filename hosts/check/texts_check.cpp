#include "check/texts_check.h"

#include "basic/text.h"
#include "check/folders.h"
#include "check/problems.h"
#include "machine/panel_words.h"
#include "machine/texts.h"
#include "portable/text_decoding.h"
#include "portable/text_reading.h"

#include <algorithm>
#include <map>
#include <set>
#include <system_error>
#include <vector>

namespace servopanel::check {

namespace {

namespace fs = std::filesystem;

// From so many on, texts are not told one by one: the language was not translated, or the file broke off.
constexpr std::size_t mostTold = 20;

struct Language {
    std::string code;
    std::string file; // "Texts/de.txt"
    machine::Texts texts;
    bool isRead = false;
};

struct Lack {
    std::string key;
    std::string text; // of the finding
    std::string view;
};

// "a", "b" and "c"; of a long list the first ones and the count of the others.
std::string quoted(const std::vector<std::string>& keys, std::size_t most)
{
    std::vector<std::string> words;
    for (std::size_t i = 0; i < keys.size() && i < most; ++i)
        words.push_back('"' + keys[i] + '"');
    if (keys.size() > most) words.push_back(std::to_string(keys.size() - most) + " more");
    return listed(words);
}

void report(const std::string& file, const std::vector<Lack>& lacks, const char* what, Findings& findings)
{
    if (lacks.size() <= mostTold) {
        for (const Lack& lack : lacks)
            findings.add({file, 0, '"' + lack.key + "\" " + lack.text, {}, lack.view});
        return;
    }
    std::vector<std::string> keys;
    for (const Lack& lack : lacks)
        keys.push_back(lack.key);
    findings.add(file, 0,
        std::to_string(lacks.size()) + ' ' + what + ": " + quoted(keys, mostTold)
            + ": the operator sees the keys of texts instead of texts, or nothing");
}

class TextsCheck {
public:
    TextsCheck(const CheckedProject& project, const Asked& asked, const Unasked& unasked, Findings& findings)
        : asked_{asked}
        , unasked_{unasked}
        , findings_{findings}
    {
        const fs::path folder = project.folder / "Texts";
        std::set<std::string> codes;
        for (const auto& language : project.file.languages) {
            if (!codes.insert(language.code).second) continue;
            Language loaded{language.code, "Texts/" + language.code + ".txt",
                machine::Texts::load(folder / (language.code + ".txt"))};
            loaded.isRead = loaded.texts.size() > 0;
            // A folder or a file in other letters is told as such, and not that it is missing.
            if (!inOtherLetters(project.folder, "Texts") && !inOtherLetters(folder, language.code + ".txt"))
                tellProblems(loaded, project.folder / loaded.file);
            languages_.push_back(std::move(loaded));
        }
        unusedFiles(folder, codes);
    }

    void run()
    {
        std::set<std::string> keys;
        for (const Language& language : languages_)
            for (const auto& [key, text] : language.texts.all())
                if (!isPanelWord(key) && !unasked_.text(key)) keys.insert(key);
        for (const Language& language : languages_) {
            unasked(language);
            if (!language.isRead) continue;
            compare(language, keys);
            panelWords(language);
        }
        inNone(keys);
    }

private:
    void tellProblems(const Language& language, const fs::path& file)
    {
        for (const machine::Problem& problem : language.texts.problems())
            findings_.add(language.file, lineOf(problem), shownReason(problem.reason, file));
        // What a full disk or a broken copy leaves.
        if (!language.isRead && language.texts.problems().empty())
            findings_.add(language.file, 0, "has no texts: the operator sees the keys of texts instead");
    }

    void unusedFiles(const fs::path& folder, const std::set<std::string>& codes)
    {
        const auto isMeant = [&](const fs::path& name) {
            return std::any_of(codes.begin(), codes.end(), [&](const std::string& code) {
                return code == name.stem() || inOtherLetters(folder, code + ".txt") == name.string();
            });
        };
        std::error_code code;
        for (fs::directory_iterator file{folder, code}, end; !code && file != end; file.increment(code)) {
            const fs::path name = file->path().filename();
            if (name.extension() == ".txt" && !isMeant(name))
                findings_.add("Texts/" + name.string(), 0,
                    "no language of project.json has the code \"" + name.stem().string()
                        + "\": nobody reads this file");
        }
    }

    // The panel has its own words where a project has none.
    static bool isPanelWord(const std::string& key)
    {
        const auto words = machine::panelWords();
        return std::any_of(
            words.begin(), words.end(), [&](const machine::PanelWord& word) { return word.key == key; });
    }

    void panelWords(const Language& language)
    {
        if (machine::speaks(language.code)) return;
        std::vector<std::string> keys;
        for (const machine::PanelWord& word : machine::panelWords())
            if (language.texts.text(word.key).empty()) keys.emplace_back(word.key);
        if (keys.empty()) return;
        findings_.add(language.file, 0,
            std::to_string(keys.size()) + " of the panel's own words are missing: "
                + quoted(keys, keys.size()) + ": the panel shows English ones");
    }

    void unasked(const Language& language)
    {
        std::vector<std::string> keys;
        for (const auto& [key, text] : language.texts.all())
            if (unasked_.text(key)) keys.push_back(key);
        if (keys.size() <= mostTold) {
            for (const std::string& key : keys)
                findings_.add(language.file, language.texts.line(key),
                    "nobody asks for \"" + key + "\"; is it misspelt?");
            return;
        }
        findings_.add(language.file, language.texts.line(keys.front()),
            "nobody asks for " + std::to_string(keys.size()) + " texts: " + quoted(keys, mostTold)
                + "; are they misspelt?");
    }

    std::string viewOf(const std::string& key) const
    {
        const auto shown = asked_.texts.find(key);
        return shown == asked_.texts.end() || shown->second.views.empty() ? std::string{}
                                                                          : shown->second.views.front();
    }

    // The file of another language that has this text, and not an empty one.
    const Language* other(const Language& language, const std::string& key) const
    {
        for (const Language& each : languages_)
            if (&each != &language && !each.texts.text(key).empty()) return &each;
        return nullptr;
    }

    void compare(const Language& language, const std::set<std::string>& keys)
    {
        std::vector<Lack> missing;
        std::vector<Lack> empty;
        for (const std::string& key : keys) {
            const std::string* const text = language.texts.find(key);
            const Language* const having = other(language, key);
            if (text == nullptr)
                missing.push_back({key,
                    "is missing here" + (having ? ", " + having->file + " has it" : std::string{})
                        + ": the operator sees the key, or nothing",
                    viewOf(key)});
            else if (text->empty() && having)
                empty.push_back(
                    {key, "is empty here, " + having->file + " has a text: the operator sees nothing",
                        viewOf(key)});
            else if (text->empty() && isNeeded(key))
                empty.push_back({key, "is empty: an input or a key has no name", viewOf(key)});
        }
        report(language.file, missing, "texts of other languages are missing here", findings_);
        report(language.file, empty, "texts are empty here", findings_);
    }

    bool isNeeded(const std::string& key) const
    {
        const auto shown = asked_.texts.find(key);
        return shown != asked_.texts.end() && shown->second.isNeeded && !isOfOpenItem(key, shown->second);
    }

    // An item that is shown only because nothing is defined, which is told already.
    bool isOfOpenItem(const std::string& key, const ShownText& shown) const
    {
        return shown.isOfItem
            && std::any_of(asked_.openMachines.begin(), asked_.openMachines.end(),
                [&](const std::string& machine) { return key.starts_with("Servo." + machine + '.'); });
    }

    // Texts that are shown and that no language has.
    void inNone(const std::set<std::string>& keys)
    {
        std::vector<std::string> files;
        for (const Language& language : languages_)
            if (language.isRead) files.push_back(language.file);
        if (files.empty()) return;
        std::vector<Lack> lacks;
        for (const auto& [key, shown] : asked_.texts)
            if (!keys.contains(key) && !isOfOpenItem(key, shown))
                lacks.push_back({key,
                    (files.size() == 1 ? "is missing" : "is missing in all languages")
                        + std::string{": the operator sees the key"},
                    viewOf(key)});
        report(
            files.size() == 1 ? files.front() : std::string{"Texts"}, lacks, "texts are missing", findings_);
    }

    const Asked& asked_;
    const Unasked& unasked_;
    Findings& findings_;
    std::vector<Language> languages_;
};

} // namespace

void checkTexts(const CheckedProject& project, const Asked& asked, const Unasked& unasked, Findings& findings)
{
    if (project.file.languages.empty())
        findings.add("project.json", project.lines.line("/languages"),
            "languages: there is none: the operator sees the keys of texts instead of texts");
    TextsCheck{project, asked, unasked, findings}.run();
}

void checkTextFiles(const CheckedProject& project, Findings& findings)
{
    if (project.file.languages.empty())
        findings.add(
            "Texts", 0, "there is no file of texts: the operator sees the keys of texts instead of texts");
    const Asked nothing;
    const Unasked nobody;
    TextsCheck{project, nothing, nobody, findings}.run();
}

} // namespace servopanel::check

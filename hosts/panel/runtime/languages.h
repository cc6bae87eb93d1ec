#pragma once

#include "machine/problem.h"
#include "machine/project_file.h"
#include "machine/texts.h"
#include "panel/form/services.h"
#include "panel/look/language_look.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::panel {

// The languages of a project with their texts, one of which is chosen.
class Languages {
public:
    Languages(const std::filesystem::path& project, const machine::ProjectFile& file);

    struct Language {
        machine::ProjectFile::Language settings;
        machine::Texts texts;
    };
    const std::vector<Language>& all() const { return all_; }

    std::int16_t current() const;
    std::string_view currentCode() const;
    bool isRightToLeft() const;
    // False when there is no such language.
    bool choose(std::int16_t number);
    // By number or code, as an engineer writes it.
    bool choose(std::string_view numberOrCode);

    // In the chosen language, nullptr when there is no such text.
    const std::string* find(std::string_view key) const;
    // The same; a text that is missing shows its key.
    std::string text(std::string_view key) const;

    // The chosen language's font as the library copies it, and everything that drawing needs to know: the families of the
    // other languages come after its own, because their names stand in the header.
    LanguageFont font() const;
    LanguageLook look() const;

    // What is wrong with the text files, and which fonts are missing.
    std::vector<machine::Problem> problems() const;

private:
    const Language* chosen() const { return all_.empty() ? nullptr : &all_[chosen_]; }

    std::vector<Language> all_;
    std::size_t chosen_ = 0;
};

} // namespace servopanel::panel

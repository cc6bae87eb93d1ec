#pragma once

#include "machine/problem.h"
#include "machine/project_file.h"
#include "machine/texts.h"

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
        std::int16_t number = 0;
        std::string code;
        std::string name;
        machine::Texts texts;
    };
    const std::vector<Language>& all() const { return all_; }

    std::int16_t current() const;
    std::string_view currentCode() const;
    // False when there is no such language.
    bool choose(std::int16_t number);
    // By number or code, as an engineer writes it.
    bool choose(std::string_view numberOrCode);

    // In the chosen language, empty when there is no such text.
    std::string text(std::string_view key) const;

    std::vector<machine::Problem> problems() const;

private:
    std::vector<Language> all_;
    std::size_t chosen_ = 0;
};

} // namespace servopanel::panel

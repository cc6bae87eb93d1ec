#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace servopanel::panel {

// What an operator chose and finds again when the panel starts the next time.
struct Choices {
    std::optional<std::int16_t> language; // number
    std::int16_t machine = 0; // whose menu or page was shown, Ch-1.intern<.aktuelle_maschine>
    std::int16_t servo = 0; // place of the shown servo among the active ones, 0 for the menu

    friend bool operator==(const Choices&, const Choices&) = default;
};

// Keeps the choices of one project in a folder of the panel PC. The file is replaced whole, so that after a power cut it
// holds either the choices before or those after.
class RememberedChoices {
public:
    // folder: made when it is missing. Choices of another project that used the folder count for nothing.
    RememberedChoices(std::filesystem::path folder, const std::filesystem::path& project);

    // Nothing is remembered before the first choice. A file that cannot be used is a problem, and nothing is remembered.
    std::optional<Choices> load();
    // Nothing is written when nothing changed.
    void save(const Choices& choices);

    // What went wrong at the last call, for the list of reports; empty when nothing did.
    const std::string& problem() const { return problem_; }

private:
    std::filesystem::path file_;
    std::string project_;
    std::optional<Choices> onDisk_;
    std::string problem_;
};

} // namespace servopanel::panel

#pragma once

#include "basic/variant.h"
#include "machine/machine_settings.h"
#include "machine/problem.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::machine {

class VariableStore;

// The variable from which the control reads the width of the screen. Whatever a project says of it, it holds the
// project's resolution.
inline constexpr std::string_view resolutionVariable = "parameter<.aufloesung>";

// project.json, the description of an HMI project (see docs/engineer.md). What is missing or wrong is among the problems
// and keeps its default; everything else is taken, of a file that breaks off what stands before the break.
struct ProjectFile {
    struct Language {
        std::int16_t number = 0;
        std::string code; // of Texts/<code>.txt
        std::string name; // as its speakers call it
        bool rightToLeft = false;
        std::string font; // family; empty: the panel's choice
        bool arabicIndicDigits = false; // numbers are shown with the digits of Arabic script
    };
    struct Variable {
        std::string name;
        basic::Variant value; // start value, which gives the type too
    };
    struct Screen {
        std::int16_t number = 0;
        std::string name; // for people, may be empty
    };

    std::string title;
    int resolution = 1280; // pixels of width: 800, 1024 or 1280
    std::optional<double> diagonalInches; // of the panel's screen; nothing: what is usual
    std::int16_t level = 0; // access level at start
    std::int16_t input = -1; // input permission, 0 is none
    std::int16_t language = 0; // number of the language at start; one of languages when there are any
    std::vector<Language> languages;
    std::vector<Variable> variables;
    std::vector<Screen> screens;
    std::optional<MachineSettings> machine; // nothing when the project brings no simulated machine

    std::vector<Problem> problems;
    bool isWhole = false; // the file could be read to its end, whatever its members hold

    static ProjectFile load(const std::filesystem::path& file);
    // file: its name for the problems.
    static ProjectFile parse(std::string_view text, const std::string& file);

    // Declares all variables of the project in the store, and resolutionVariable in any case.
    void declareVariables(VariableStore& store) const;
};

} // namespace servopanel::machine

#pragma once

#include "machine/problem.h"

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::machine {

// The texts of one language: lines "key = text", "#" begins a comment line. Blanks around key and text do not count; a
// text in double quotes keeps the blanks inside them. Keys compare exactly.
class Texts {
public:
    // Never fails: what is missing or wrong is among the problems, the first hundred of a file. The file is in UTF-8, or
    // in UTF-16 with a byte order mark; lines that are neither are taken as Windows-1252 and reported.
    static Texts load(const std::filesystem::path& file);
    // The same for the bytes of a file that was read. file: its name for the problems.
    static Texts of(std::string_view bytes, const std::string& file);
    static Texts fromLines(const std::vector<std::string>& lines, const std::string& file);

    // nullptr for an unknown key.
    const std::string* find(std::string_view key) const;
    // The line in which the text of a key stands, from 1 on; 0 for an unknown key.
    int line(std::string_view key) const;
    // The text, "" for an unknown key.
    std::string text(std::string_view key) const;
    const std::map<std::string, std::string, std::less<>>& all() const { return texts_; }

    std::size_t size() const { return texts_.size(); }
    const std::vector<Problem>& problems() const { return problems_; }

private:
    std::map<std::string, std::string, std::less<>> texts_;
    std::map<std::string, int, std::less<>> lines_;
    std::vector<Problem> problems_;
};

} // namespace servopanel::machine

#pragma once

#include "check/finding.h"

#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace servopanel::check {

// An INI file with the lines that its entries stand in.
class IniFile {
public:
    // Who reads a file. The library itself knows neither comments nor blanks: every line with "[" and "]" is the head of a
    // section, every other one with "=" an entry.
    enum class Reader { System, Library };

    struct Entry {
        int line = 0;
        std::string section; // as written, without the brackets
        std::string name; // as written, with its blanks
        std::string value; // likewise
    };

    // Reads a file. Adds to the findings what no reader of INI files understands, and what is there twice; name is the
    // file's name for them. Nothing when it cannot be read, which is a finding too; nobody can be shown an INI file of
    // more than 1 MB.
    static std::optional<IniFile> load(
        const std::filesystem::path& file, const std::string& name, Reader reader, Findings& findings);
    // The same for the bytes of a file that was read.
    static std::optional<IniFile> of(
        std::string_view bytes, const std::string& name, Reader reader, Findings& findings);

    const std::vector<Entry>& entries() const { return entries_; }
    // Without regard to case and to blanks around names; the first one. nullptr when there is none.
    const Entry* find(std::string_view section, std::string_view entry) const;
    // The line of its head; 0 when there is no such section.
    int lineOfSection(std::string_view section) const;

private:
    void read(const std::vector<std::string>& lines, const std::string& name, Findings& findings);
    static void misread(const std::vector<std::string>& lines, const std::string& name, Findings& findings);
    void addEntry(Entry entry, const std::string& name, Findings& findings);

    std::vector<std::string> sections_;
    std::vector<Entry> entries_;
    std::map<std::string, int> sectionLines_; // by upper case
    std::map<std::pair<std::string, std::string>, std::size_t> places_; // of the entries, by section and name
};

// Sections and entries are found by these: upper case, without blanks around.
std::string iniName(std::string_view name);

} // namespace servopanel::check

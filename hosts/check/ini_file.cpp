#include "check/ini_file.h"

#include "basic/error.h"
#include "basic/text.h"
#include "check/problems.h"
#include "portable/text_decoding.h"
#include "portable/text_reading.h"
#include "portable/trimming.h"

#include <utility>

namespace servopanel::check {

namespace {

// Every look-up reads the file anew, so a large one makes the panel slow at each touch.
constexpr std::size_t largest = 1'000'000; // bytes

constexpr const char* notRead = "; what it is to say has its default";

} // namespace

std::string iniName(std::string_view name) { return basic::upperCase(portable::trimBlanks(name)); }

std::optional<IniFile> IniFile::load(
    const std::filesystem::path& file, const std::string& name, Reader reader, Findings& findings)
{
    try {
        const portable::FileBytes content = portable::readFile(file, name);
        if (content.failure) findings.add(name, 0, shownReason(content.failure->description, name) + notRead);
        return of(content.bytes, name, reader, findings);
    } catch (const basic::Error& error) {
        findings.add(name, 0, shownReason(error.description, name) + notRead);
        return std::nullopt;
    }
}

std::optional<IniFile> IniFile::of(
    std::string_view bytes, const std::string& name, Reader reader, Findings& findings)
{
    if (bytes.size() > largest) {
        findings.add(name, 0,
            "has more than 1 MB and is no INI file; the panel reads it at every touch and stands still "
            "meanwhile");
        return std::nullopt;
    }
    if (bytes.find('\0') != std::string::npos) {
        findings.add(name, 0, std::string{"is no text: it has characters of the number 0"} + notRead);
        return std::nullopt;
    }
    IniFile ini;
    const std::vector<std::string> lines = portable::decodeLines(bytes);
    ini.read(lines, name, findings);
    if (reader == Reader::Library) misread(lines, name, findings);
    return ini;
}

void IniFile::read(const std::vector<std::string>& lines, const std::string& name, Findings& findings)
{
    bool isSecond = false; // the section stands there already
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const int number = static_cast<int>(i) + 1;
        const std::string_view line = portable::trimBlanks(lines[i]);
        if (line.empty() || line.front() == ';') continue;
        if (line.front() == '[') {
            const std::size_t end = line.find(']');
            if (end == std::string_view::npos) {
                findings.add(
                    name, number, "a section's head has no \"]\"; its entries count to the section before");
                continue;
            }
            std::string section{portable::trimBlanks(line.substr(1, end - 1))};
            const int first = sectionLines_.try_emplace(iniName(section), number).first->second;
            isSecond = first != number;
            if (isSecond)
                findings.add(name, number,
                    "section [" + section + "] stands in line " + std::to_string(first)
                        + " already; nobody reads this one");
            sections_.push_back(std::move(section));
            continue;
        }
        const std::size_t equals = lines[i].find('=');
        if (equals == std::string_view::npos)
            findings.add(name, number, "no \"=\"; nobody reads this line");
        else if (sections_.empty())
            findings.add(name, number, "an entry before the first section; nobody reads it");
        else if (!isSecond)
            addEntry({number, sections_.back(), lines[i].substr(0, equals), lines[i].substr(equals + 1)},
                name, findings);
    }
}

// Lines that people take for a comment or an entry, and the library for something else.
void IniFile::misread(const std::vector<std::string>& lines, const std::string& name, Findings& findings)
{
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string_view line = portable::trimBlanks(lines[i]);
        if (line.empty() || line.front() == '[') continue;
        const bool isComment = line.front() == ';';
        const bool isHead =
            line.find('[') != std::string_view::npos && line.find(']') != std::string_view::npos;
        const bool isEntry =
            line.find('[') == std::string_view::npos && line.find('=') != std::string_view::npos;
        const int number = static_cast<int>(i) + 1;
        if (isHead)
            findings.add(name, number,
                "\"[\" and \"]\" make this line the head of a section in this file, and the entries below "
                "count to it");
        else if (isComment && isEntry)
            findings.add(name, number, "this file knows no comments: the \"=\" makes this line an entry");
    }
}

void IniFile::addEntry(Entry entry, const std::string& name, Findings& findings)
{
    const auto [place, isNew] =
        places_.try_emplace({iniName(entry.section), iniName(entry.name)}, entries_.size());
    if (isNew) {
        entries_.push_back(std::move(entry));
        return;
    }
    std::string what = "[" + entry.section + "] ";
    what += portable::trimBlanks(entry.name);
    what += " stands in line " + std::to_string(entries_[place->second].line);
    findings.add(name, entry.line, what + " already; nobody reads this one");
}

const IniFile::Entry* IniFile::find(std::string_view section, std::string_view entry) const
{
    const auto place = places_.find({iniName(section), iniName(entry)});
    return place == places_.end() ? nullptr : &entries_[place->second];
}

int IniFile::lineOfSection(std::string_view section) const
{
    const auto line = sectionLines_.find(iniName(section));
    return line == sectionLines_.end() ? 0 : line->second;
}

} // namespace servopanel::check

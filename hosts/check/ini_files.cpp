#include "check/ini_files.h"

#include "basic/text.h"
#include "portable/profile_text.h"
#include "portable/trimming.h"
#include "portable/whole_number.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <set>
#include <string_view>

namespace servopanel::check {

const CheckedProject::Ini* iniOf(const CheckedProject& project, const std::string& name)
{
    const auto found = project.inis.find(basic::upperCase(name));
    return found == project.inis.end() ? nullptr : &found->second;
}

std::string valueOf(const IniFile::Entry& entry)
{
    return std::string{portable::withoutQuotes(portable::trimBlanks(entry.value), "\"'")};
}

namespace {

namespace fs = std::filesystem;

constexpr const char* footerFile = "Servo/Servo.ini";
constexpr int footerKeys = 10;
constexpr const char* noProgram = "no such file: the panel finds no servos";
constexpr const char* readByNobody = " is read by nobody; it may be misspelt";

enum class Value { Switch, Number, Colour };

// Entries that the library reads, by their names without the numbers in them.
struct EntryRule {
    std::string_view name;
    Value value;
    int least = 0;
    int most = 0;
    const char* missing = nullptr; // what it means when there is no such entry; nullptr: it may be missing
    const char* outside = "the library takes it all the same";
};

constexpr int wide = 7305; // twips of the servo's picture
constexpr int high = 2190;
constexpr const char* noCaption =
    "a message stops the operator, and the caption stands at the picture's edge";

constexpr const char* besidePicture = "the caption stands beside the picture";
constexpr const char* noServo = "the menu has a key that leads to no servo";
constexpr std::string_view servoEntry = "SERVO";
constexpr int mostServos = 50;

constexpr std::array rules{
    EntryRule{"SERVOWITHMENU", Value::Switch},
    EntryRule{"SERVOWITHFAULT", Value::Switch},
    EntryRule{"SERVOWITHMACHINETYPE", Value::Number, 0, 32767},
    EntryRule{servoEntry, Value::Number, 1, mostServos, noServo, noServo},
    EntryRule{"DIAG2SERVO", Value::Switch},
    EntryRule{"SERVOPIC", Value::Number, 1, 32767},
    EntryRule{"EXTSERVO", Value::Switch},
    EntryRule{"COL", Value::Colour},
    EntryRule{"ALI", Value::Number, 0, 1, noCaption, "the caption begins at this place"},
    EntryRule{"X", Value::Number, 0, wide, noCaption, besidePicture},
    EntryRule{"Y", Value::Number, 0, high, noCaption, besidePicture},
};

std::string withoutNumbers(std::string_view name)
{
    const auto isDigit = [](char sign) { return sign >= '0' && sign <= '9'; };
    while (!name.empty() && isDigit(name.front()))
        name.remove_prefix(1);
    while (!name.empty() && isDigit(name.back()))
        name.remove_suffix(1);
    return std::string{name};
}

const EntryRule* ruleOf(const std::string& entry)
{
    const std::string name = withoutNumbers(entry);
    const auto rule =
        std::find_if(rules.begin(), rules.end(), [&](const EntryRule& each) { return each.name == name; });
    return rule == rules.end() ? nullptr : &*rule;
}

std::optional<int> wholeNumber(std::string_view text)
{
    const bool isHex = text.substr(0, 2) == "0x" || text.substr(0, 2) == "0X";
    if (isHex) text.remove_prefix(2);
    return portable::wholeNumber<int>(text, isHex ? 16 : 10);
}

std::string nameOf(const IniFile::Entry& entry)
{
    std::string name = "[" + entry.section + "] ";
    name += portable::trimBlanks(entry.name);
    return name;
}

// What is wrong with a value; "" when nothing is.
std::string mistakeOf(const EntryRule& rule, const std::string& value)
{
    const std::string upper = basic::upperCase(value);
    if (rule.value == Value::Switch)
        return upper == "TRUE" || upper == "FALSE" ? "" : "is neither TRUE nor FALSE and counts as FALSE";
    if (rule.value == Value::Colour)
        return value.empty() || value == "ws" || value == "sw"
            ? ""
            : "is neither \"ws\" for white nor \"sw\" for black; the caption is black";
    const std::optional<int> number = wholeNumber(value);
    if (!number) return "is no whole number; the library takes what digits come first, or 0";
    if (*number >= rule.least && *number <= rule.most) return "";
    std::string range = "is not from " + std::to_string(rule.least);
    range += " to " + std::to_string(rule.most) + ": ";
    return range + rule.outside;
}

void checkEntry(
    const std::string& file, const IniFile::Entry& entry, const std::string& name, Findings& findings)
{
    const EntryRule* const rule = ruleOf(name);
    if (rule == nullptr) return;
    const std::string value = valueOf(entry);
    const std::string mistake = mistakeOf(*rule, value);
    if (!mistake.empty())
        findings.add(file, entry.line, nameOf(entry) + " is \"" + value + "\", which " + mistake);
}

// A servo twice in the list of a machine.
void checkServoList(const std::string& file, const IniFile& ini, Findings& findings)
{
    std::map<std::pair<std::string, int>, int> lines; // section and number
    for (const IniFile::Entry& entry : ini.entries()) {
        const std::optional<int> servo = servoNumber(valueOf(entry));
        if (!isServoEntry(entry.name) || !servo) continue;
        const auto [first, isNew] = lines.try_emplace({iniName(entry.section), *servo}, entry.line);
        if (!isNew)
            findings.add(file, entry.line,
                nameOf(entry) + " is servo " + std::to_string(*servo) + ", as in line "
                    + std::to_string(first->second) + ": the menu has two keys for one servo");
    }
}

// section: in capitals.
bool listsServos(const IniFile& ini, const std::string& section)
{
    return std::any_of(ini.entries().begin(), ini.entries().end(), [&](const IniFile::Entry& entry) {
        return iniName(entry.section) == section && isServoEntry(entry.name);
    });
}

using EntriesRead = std::set<std::pair<std::string, std::string>>; // section and entry, in capitals

// Whether nobody came to read an entry because its place in the list of servos leads to none. ExtServo counts by the
// servos that are switched on, and nothing follows from it.
bool isExcused(const IniFile& ini, const IniFile::Entry& entry, const EntriesRead& read)
{
    const std::string name = iniName(entry.name);
    const std::string plain = withoutNumbers(name);
    if (plain == "EXTSERVO") return true;
    if (plain != "DIAG2SERVO" && plain != "SERVOPIC") return false;
    std::string list{servoEntry};
    list += name.substr(name.find_last_not_of("0123456789") + 1);
    const IniFile::Entry* const servo = ini.find(entry.section, list);
    const bool leadsToNone = servo == nullptr || !servoNumber(valueOf(*servo));
    return leadsToNone && read.contains({iniName(entry.section), list});
}

// The library takes this file as it stands, blanks and all.
class FooterCheck {
public:
    FooterCheck(const CheckedProject::Ini& ini, Findings& findings)
        : name_{ini.name}
        , ini_{*ini.content}
        , findings_{findings}
    {
    }

    void run(std::size_t machines)
    {
        for (const IniFile::Entry& entry : ini_.entries())
            known(entry, machines);
        std::set<int> used{3}; // key 3 shows the access level, in use or not
        for (std::size_t machine = 1; machine <= machines; ++machine) {
            const std::string section = "Machine" + std::to_string(machine);
            if (ini_.lineOfSection(section) == 0) {
                findings_.add(name_, 0,
                    "section [" + section + "] is missing: the keys may go by those of another machine");
                continue;
            }
            for (int key = 1; key <= footerKeys; ++key)
                if (flag(section, "F" + std::to_string(key))) used.insert(key);
        }
        for (const int key : used)
            picture("F" + std::to_string(key));
    }

private:
    // Blanks and misspelt names.
    void known(const IniFile::Entry& entry, std::size_t machines)
    {
        const std::string section = iniName(entry.section);
        const std::string number = section.substr(0, 7) == "MACHINE" ? section.substr(7) : std::string{};
        const std::optional<int> machine = wholeNumber(number);
        const std::string key = iniName(entry.name);
        const std::optional<int> keyNumber =
            key.substr(0, 1) == "F" ? wholeNumber(key.substr(1)) : std::nullopt;
        const bool isSection =
            section == "FOOTER" || (machine && *machine >= 1 && *machine <= static_cast<int>(machines));
        if (!isSection)
            findings_.add(
                name_, ini_.lineOfSection(section), "section [" + entry.section + ']' + readByNobody);
        else if (!keyNumber || *keyNumber < 1 || *keyNumber > footerKeys)
            findings_.add(name_, entry.line, nameOf(entry) + readByNobody);
        else if (portable::trimBlanks(entry.name) != entry.name)
            findings_.add(name_, entry.line,
                nameOf(entry) + " has blanks beside its name: the library does not find it");
    }

    bool flag(const std::string& section, const std::string& key)
    {
        const IniFile::Entry* const entry = ini_.find(section, key);
        if (entry == nullptr) {
            const std::string what = "[" + section + "] " + key;
            findings_.add(name_, ini_.lineOfSection(section),
                what + " is missing: the key may go by that of another machine");
            return false;
        }
        const std::string value = basic::upperCase(entry->value);
        if (value != "TRUE" && value != "FALSE")
            findings_.add(name_, entry->line,
                nameOf(*entry) + " is \"" + entry->value
                    + "\", which is neither TRUE nor FALSE: the operator has no such key");
        return value == "TRUE";
    }

    void picture(const std::string& key)
    {
        const IniFile::Entry* const entry = ini_.find("Footer", key);
        if (entry == nullptr || portable::trimBlanks(entry->value).empty())
            findings_.add(name_, entry == nullptr ? ini_.lineOfSection("Footer") : entry->line,
                "[Footer] " + key + " names no picture: a message stops the operator at every page");
        else if (portable::trimBlanks(entry->value) != entry->value)
            findings_.add(name_, entry->line,
                nameOf(*entry) + " has blanks beside its value: the key stays without its picture");
    }

    const std::string& name_;
    const IniFile& ini_;
    Findings& findings_;
};

} // namespace

std::optional<int> servoNumber(std::string_view value)
{
    const std::int32_t number = portable::profileNumber(value);
    if (number < 1 || number > mostServos) return std::nullopt;
    return number;
}

bool isServoEntry(std::string_view entry) { return withoutNumbers(iniName(entry)) == servoEntry; }

int machineOfList(std::string_view section)
{
    const std::string name = iniName(section);
    return withoutNumbers(name) == "MACHINE" ? portable::profileNumber(name) : 0;
}

std::int16_t servosListed(const CheckedProject& project, int machine)
{
    const CheckedProject::Ini* const ini = iniOf(project, programFile);
    if (ini == nullptr || !ini->content) return 0;
    const std::string section = iniName(std::to_string(machine) + "Machine");
    const auto& entries = ini->content->entries();
    return static_cast<std::int16_t>(
        std::count_if(entries.begin(), entries.end(), [&](const IniFile::Entry& entry) {
            return iniName(entry.section) == section && isServoEntry(entry.name);
        }));
}

bool isSwitch(std::string_view entry)
{
    const EntryRule* const rule = ruleOf(iniName(entry));
    return rule != nullptr && rule->value == Value::Switch;
}

void readIniFiles(CheckedProject& project, Findings& findings)
{
    for (const char* const folder : {"Parameter", "Servo"}) {
        std::error_code code;
        const std::optional<fs::path> place = project.mapping.find(folder);
        if (!place) continue;
        for (fs::directory_iterator file{*place, code}, end; !code && file != end; file.increment(code)) {
            const std::string leaf = file->path().filename().string();
            if (basic::upperCase(file->path().extension().string()) != ".INI") continue;
            const std::string name = place->filename().string() + '/' + leaf;
            const bool isFooter = basic::upperCase(name) == basic::upperCase(footerFile);
            project.inis[basic::upperCase(name)] = {name,
                IniFile::load(file->path(), name,
                    isFooter ? IniFile::Reader::Library : IniFile::Reader::System, findings)};
        }
    }
    for (const auto& [key, ini] : project.inis)
        if (ini.content) checkServoList(ini.name, *ini.content, findings);
}

std::vector<FooterPicture> footerPictures(const CheckedProject& project)
{
    std::vector<FooterPicture> pictures;
    const CheckedProject::Ini* const ini = iniOf(project, footerFile);
    if (ini == nullptr || !ini->content) return pictures;
    for (int key = 1; key <= footerKeys; ++key) {
        const IniFile::Entry* const entry = ini->content->find("Footer", "F" + std::to_string(key));
        if (entry == nullptr || portable::trimBlanks(entry->value).empty()) continue;
        std::string beginning = entry->value;
        std::replace(beginning.begin(), beginning.end(), '\\', '/');
        beginning.resize(std::min(beginning.size(), beginning.rfind('.')));
        pictures.push_back(
            {ini->name, entry->line, nameOf(*entry) + " is \"" + entry->value + '"', std::move(beginning)});
    }
    return pictures;
}

void checkFooterFile(const CheckedProject& project, std::size_t machines, Findings& findings)
{
    const CheckedProject::Ini* const ini = iniOf(project, footerFile);
    if (ini == nullptr)
        findings.add(footerFile, 0, "no such file: no footer keys, and messages at every page");
    else if (ini->content)
        FooterCheck{*ini, findings}.run(machines);
}

std::size_t machinesOfFooterFile(const CheckedProject& project)
{
    const CheckedProject::Ini* const ini = iniOf(project, footerFile);
    std::size_t machines = 0;
    while (ini != nullptr && ini->content
        && ini->content->lineOfSection("Machine" + std::to_string(machines + 1)) > 0)
        ++machines;
    return machines;
}

void checkEntriesAlone(const CheckedProject& project, Findings& findings)
{
    if (iniOf(project, programFile) == nullptr) findings.add(programFile, 0, noProgram);
    for (const auto& [key, ini] : project.inis) {
        if (!ini.content || key == basic::upperCase(footerFile)) continue;
        for (const IniFile::Entry& entry : ini.content->entries()) {
            const std::string name = iniName(entry.name);
            if (ruleOf(name) == nullptr)
                findings.add(ini.name, entry.line, nameOf(entry) + readByNobody);
            else
                checkEntry(ini.name, entry, name, findings);
        }
    }
}

void checkEntries(const CheckedProject& project, const Asked& asked, Findings& findings)
{
    std::set<std::string> missingFiles;
    for (const auto& [place, askedEntry] : asked.entries) {
        const auto& [file, section, name] = place;
        const CheckedProject::Ini* const ini = iniOf(project, file);
        const EntryRule* const rule = ruleOf(name);
        const bool mayBeMissing = rule == nullptr || rule->missing == nullptr;
        if (ini == nullptr) {
            // A servo without captions needs no file.
            if (!mayBeMissing) missingFiles.insert(file);
            continue;
        }
        if (!ini->content) continue;
        if (const IniFile::Entry* const entry = ini->content->find(section, name)) {
            checkEntry(ini->name, *entry, name, findings);
            continue;
        }
        if (mayBeMissing) continue;
        if (rule->name == servoEntry && !listsServos(*ini->content, section)) {
            findings.add(ini->name, ini->content->lineOfSection(section),
                askedEntry.name.substr(0, askedEntry.name.find(']') + 1)
                    + " lists no servos: the panel finds none");
            continue;
        }
        findings.add({ini->name, ini->content->lineOfSection(section),
            askedEntry.name + " is missing: " + rule->missing, {}, askedEntry.view});
    }
    for (const std::string& file : missingFiles)
        findings.add(file, 0, noProgram);
    // Which files and entries are wanted says the list of servos.
    if (!asked.isWhole()) {
        checkEntriesAlone(project, findings);
        return;
    }
    for (const auto& [key, ini] : project.inis) {
        if (!ini.content || key == basic::upperCase(footerFile)) continue;
        const auto first = asked.entries.begin();
        const bool isAsked = std::any_of(first, asked.entries.end(),
            [&, &key = key](const auto& each) { return basic::upperCase(std::get<0>(each.first)) == key; });
        if (!isAsked) {
            findings.add(ini.name, 0, "nobody reads this file; its name may be misspelt");
            continue;
        }
        EntriesRead read;
        for (const auto& [place, askedEntry] : asked.entries)
            if (basic::upperCase(std::get<0>(place)) == key)
                read.emplace(std::get<1>(place), std::get<2>(place));
        for (const IniFile::Entry& entry : ini.content->entries())
            if (!read.contains({iniName(entry.section), iniName(entry.name)})
                && !isExcused(*ini.content, entry, read))
                findings.add(ini.name, entry.line, nameOf(entry) + readByNobody);
    }
}

} // namespace servopanel::check

// The reader of INI files that finds mistakes in a project: what it takes for an entry the panel finds too, with the
// same value, and everything has its line.
#include "check/finding.h"
#include "check/ini_file.h"
#include "check/ini_files.h"
#include "fuzz/fuzz.h"
#include "portable/profile_text.h"
#include "portable/text_decoding.h"
#include "portable/trimming.h"

#include <cstddef>
#include <optional>
#include <string>

namespace servopanel::fuzz {

namespace {

using check::IniFile;

constexpr std::size_t longest = 254; // bytes of a value that is never cut

void checkEntry(const IniFile& ini, const IniFile::Entry& entry, const std::string& text)
{
    if (ini.find(entry.section, entry.name) != &entry) broken("an entry is found by its name, the first one");
    const int head = ini.lineOfSection(entry.section);
    if (head < 1 || head >= entry.line) broken("an entry stands below the head of its section");
    // Nobody can ask for an entry without a name.
    if (portable::trimBlanks(entry.name).empty()) return;
    const std::optional<std::string> found = portable::profileLookUp(text, entry.section, entry.name);
    const std::string value = check::valueOf(entry);
    if (!found) broken("the panel finds an entry, too");
    if (!value.starts_with(*found) || (value.size() <= longest && value != *found))
        broken("the panel finds the same value");
}

} // namespace

void feed(std::string_view bytes)
{
    const std::string text = portable::decodedText(std::string{bytes});
    const auto lines = static_cast<int>(portable::decodeLines(bytes).size());
    for (const IniFile::Reader reader : {IniFile::Reader::System, IniFile::Reader::Library}) {
        check::Findings findings;
        const std::optional<IniFile> ini = IniFile::of(bytes, "Program.ini", reader, findings);
        if (!ini && findings.count() == 0) broken("a file that cannot be read is a finding");
        if (findings.text().empty() != (findings.count() == 0)) broken("what was found is told");
        if (!ini) continue;
        int last = 0;
        int asked = 0;
        for (const IniFile::Entry& entry : ini->entries()) {
            if (entry.line <= last || entry.line > lines) broken("entries come in the order of their lines");
            last = entry.line;
            if (++asked <= 200) checkEntry(*ini, entry, text);
        }
    }
}

} // namespace servopanel::fuzz

#pragma once

#include "config/mservice.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace servopanel::testing {

// The module of INI files and a file system to read from.
struct IniTest : ::testing::Test {
    Surround surround;
    config::MService service{surround.umfeld};
    config::IniSpeicher& speicher = service.speicher();

    // The file of this project-relative name has these lines.
    void file(const std::string& name, const std::vector<std::string>& lines)
    {
        std::string& text = surround.world().texts["P:\\" + name].text;
        text.clear();
        for (const std::string& line : lines)
            text += line + "\r\n";
    }
    bool open(const std::string& name) { return service.OpenIni(name, true); }
    std::string find(const char* section, const char* entry)
    {
        return service.FindeIniEintrag(section, entry, false);
    }
    const std::vector<std::string>& shown() const { return surround.platform.shown; }
    const Reports& reports() const { return surround.reports(); }
};

} // namespace servopanel::testing

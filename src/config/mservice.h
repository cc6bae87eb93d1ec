#pragma once

#include "basic/growing_array.h"
#include "display/umfeld.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace servopanel::config {

struct IniSektion {
    std::string Name; // as between the brackets
    std::string NameGross;
    std::int16_t ErsterEintrag = 0;
    std::int16_t LetzterEintrag = 0; // 0 while the section has no entry
};

struct IniEintrag {
    std::string Name; // before the first "="
    std::string NameGross;
    std::string Wert; // after the first "="
};

// The file that the line-based reader holds. Records are never cleared: only the counts say which are valid, and what a
// larger file left behind them takes part in the look-ups.
struct IniSpeicher {
    std::string IniDateiName; // full path
    basic::GrowingArray<IniSektion, 1001>
        IniSektionen; // 0: entries before the first section; sections from 1
    std::int16_t IniSektionAnzahl = 0;
    basic::GrowingArray<IniEintrag, 10001> IniEintraege; // from 1, in file order
    std::int16_t IniEintragAnzahl = 0;
    bool IniGeoeffnet = false; // between OpenIni and CloseIni; the file itself is free once it was read
    bool IniGeaendert =
        false; // no procedure sets it; a host or a later procedure that changes the cache does
};

// INI files, in two ways: a reader of whole files that trims nothing, and single look-ups by the rules of the operating
// system's profile functions. A file that holds "key = 5" answers only the second. Every procedure reports its own
// errors under its bare name and returns normally.
class MService {
public:
    explicit MService(display::Umfeld& umfeld);

    // Loads a file; True when it was read completely. A file that is open already is given up: False, empty cache.
    // auflösen: the name is project-relative.
    bool OpenIni(std::string_view name, bool auflösen);
    // Ends the use of the cache and, when it was changed, writes it back before.
    void CloseIni();

    // The value of an entry of the open file, or the empty string, with a message to the operator when melden is set.
    std::string FindeIniEintrag(std::string_view sektion, std::string_view eintrag, bool melden);
    std::string InputIniString(std::string_view sektion, std::string_view eintrag, bool melden);
    // True for TRUE in any case.
    bool InputIniBoolean(std::string_view sektion, std::string_view eintrag, bool melden);

    // Single look-ups; absent: -1, the empty string, False. melden: a message to the operator when absent.
    std::int16_t LoadIniInteger(std::string_view sektion, std::string_view eintrag, std::string_view datei,
        bool auflösen, bool melden);
    std::string LoadIniString(std::string_view sektion, std::string_view eintrag, std::string_view datei,
        bool auflösen, bool melden);
    bool LoadIniBoolean(std::string_view sektion, std::string_view eintrag, std::string_view datei,
        bool auflösen, bool melden);

    IniSpeicher& speicher() { return *speicher_; }

private:
    display::Umfeld& umfeld_;
    std::unique_ptr<IniSpeicher> speicher_;
};

} // namespace servopanel::config

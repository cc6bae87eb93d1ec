#pragma once

#include "basic/arithmetic.h"
#include "display/mglobal.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace servopanel::config {

// Definition of one parameter of one machine type.
struct ParamDef {
    basic::Variant Lesezeichen; // finds the row again for writing
    std::string VarName; // full process-variable name
    std::int16_t OffsetOderBitNr = 0; // element of the variable's array, or bit of the switch word
    double AbsMin = 0;
    double AbsMax = 0;
    double Min = 0;
    double Max = 0;
    std::int16_t Pass = 0; // access level that the input asks for

    // Columns of the row that could not be read; what stands in for them is not written back. Whoever gives such a field
    // a value of the operator's clears its mark.
    bool AbsMinFehlt = false;
    bool AbsMaxFehlt = false;
    bool MinFehlt = false;
    bool MaxFehlt = false;
    bool OffsetFehlt = false;
    bool PassFehlt = false;
};

// The access level of a parameter whose own is unreadable: nobody has it, so nobody edits the parameter.
inline constexpr std::int16_t gesperrt = 32767;

inline constexpr std::int16_t höchsteParamDefAnzahl = 2000;

// The parameter definitions of the project's database: read for one machine type, looked up, written back. Every
// procedure reports its own errors under its bare name and returns normally.
class MServoModul {
public:
    MServoModul(display::Umfeld& umfeld, display::MGlobal& global);

    // Reads the rows of a machine type, and of one variable unless variable is "alle"; returns ParamDefAnzahl.
    std::int16_t INI_Datenbank_Einlesen(
        std::string_view datei, std::string_view maschinenTyp, std::string_view variable);

    // 1-based position of the last record of this variable (without regard to case) and element, or -1.
    std::int16_t INI_Daten_Lesen(std::string_view variable, std::int16_t element);

    // Writes the records of one variable ("alle": all) back to the rows they were read from.
    void INI_Datenbank_Schreiben(std::string_view datei, std::string_view variable);

    basic::CheckedArray<ParamDef, höchsteParamDefAnzahl>& ParamDefs() { return *paramDefs_; }
    std::int16_t ParamDefAnzahl() const { return paramDefAnzahl_; }

private:
    display::Umfeld& umfeld_;
    display::MGlobal& global_;
    std::unique_ptr<basic::CheckedArray<ParamDef, höchsteParamDefAnzahl>> paramDefs_;
    std::int16_t paramDefAnzahl_ = 0;
};

} // namespace servopanel::config

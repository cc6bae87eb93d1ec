#pragma once

#include "config/mservo_modul.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <string>

namespace servopanel::testing {

// The module of parameter definitions and a database in the file "Servo\Servo.mdb".
struct DefinitionsTest : ::testing::Test {
    static constexpr const char* file = "Servo\\Servo.mdb";

    Surround surround;
    display::MGlobal global{surround.umfeld};
    config::MServoModul modul{surround.umfeld, global};
    FakeTable& table = surround.platform.tables["P:\\Servo\\Servo.mdb"];

    DefinitionsTest() { surround.world().existing.insert("P:\\Servo\\Servo.mdb"); }

    FakeRow& row(const std::string& type, const std::string& variable, std::int16_t element)
    {
        table.rows.push_back({++lastId_,
            {{"MACHINE_TYPE", type}, {"VAR_NAME", variable}, {"OFFSET_OR_BITNO", element},
                {"ABS_MIN", -100.0}, {"ABS_MAX", 100.0}, {"MIN", -10.0}, {"MAX", 10.0},
                {"PASS", std::int16_t{2}}}});
        return table.rows.back();
    }
    std::int16_t read(const char* type = "M1", const char* variable = "alle")
    {
        return modul.INI_Datenbank_Einlesen(file, type, variable);
    }
    const config::ParamDef& def(std::int32_t position) { return modul.ParamDefs()[position - 1]; }
    const Reports& reports() const { return surround.reports(); }

private:
    std::int32_t lastId_ = 0;
};

} // namespace servopanel::testing

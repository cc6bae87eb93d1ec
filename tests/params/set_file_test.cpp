#include "basic/error.h"
#include "params/set_file.h"
#include "support/error_number.h"

#include <gtest/gtest.h>

#include <string>

namespace servopanel::testing {

namespace {

using params::ParameterSet;
using params::Row;

const std::string start =
    "servo parameters,1\nmachine,M1\ndescription,ab\n\nvariable,element,name,unit,value\n";
const std::string para = "Ch1.M1_T_servo_3<.mM1_servo_para_3>";

std::string errorOf(const std::string& text)
{
    try {
        params::fromText(text);
    } catch (const basic::Error& error) {
        return error.description;
    }
    return {};
}

} // namespace

TEST(SetFile, ComesBackAsItWas)
{
    ParameterSet set;
    set.project = "Line; \"north\"";
    set.machine = "M1";
    set.source = "broker 127.0.0.1:1883";
    set.time = "2026-11-22T01:19:05.250Z";
    set.epoch = 1'700'000'000'000;
    set.description = "75adc1b268fd9111";
    set.rows = {Row{{3, 0, 0}, "=Draw, main", "%", 0.1, 0}, Row{{3, 0, 1}, "", "", -1e-300, 0},
        Row{{3, 2, 1}, "Automatic", "", 1, 0}, Row{{12, 3, 0}, "", "", 312450017, 0}};
    const std::string text = params::toText(set);
    EXPECT_NE(text.find("Ch1.M1_T_servo_3<.mM1_servo_para_3>,0,\"'=Draw, main\",%,0.1\n"), std::string::npos)
        << text;
    const ParameterSet read = params::fromText(text);
    EXPECT_EQ(read.project, set.project);
    EXPECT_EQ(read.machine, set.machine);
    EXPECT_EQ(read.source, set.source);
    EXPECT_EQ(read.time, set.time);
    EXPECT_EQ(read.epoch, set.epoch);
    EXPECT_EQ(read.description, set.description);
    ASSERT_EQ(read.rows.size(), set.rows.size());
    for (std::size_t i = 0; i < set.rows.size(); ++i) {
        EXPECT_EQ(read.rows[i].place, set.rows[i].place);
        EXPECT_EQ(read.rows[i].name, set.rows[i].name);
        EXPECT_EQ(read.rows[i].unit, set.rows[i].unit);
        EXPECT_EQ(read.rows[i].value, set.rows[i].value);
    }
    EXPECT_EQ(params::toText(read), text);
}

TEST(SetFile, TakesRowsAndColumnsInAnyOrder)
{
    const ParameterSet set = params::fromText(
        "\xEF\xBB\xBFservo parameters;1\r\nmachine;M1\r\nvalue;unit;name;element;variable\r\n2;;;1;" + para
        + "\r\n1.5;;;0;" + para + "\r\n");
    ASSERT_EQ(set.rows.size(), 2U);
    EXPECT_EQ(set.rows[0].value, 1.5);
    EXPECT_EQ(set.rows[0].line, 5U);
    EXPECT_EQ(set.rows[1].place.element, 1);
}

TEST(SetFile, NamesTheLineOfAMistake)
{
    struct Case {
        std::string text;
        std::string error;
    };
    const Case cases[]{
        {"", "line 1: it does not begin with 'servo parameters': it is no parameter set"},
        {"<html>", "line 1: it does not begin with 'servo parameters': it is no parameter set"},
        {"servo parameters,2\n", "line 1: version 2 of the format is not known"},
        {"servo parameters,1\nmachine,M1\n", "there is no line with the names of the columns"},
        {"servo parameters,1\nmachine,M1\nvariable,element,name\n", "line 3: there is no column unit, value"},
        {"servo parameters,1\nvariable,element,name,unit,value\n",
            "line 2: no line before this one names the machine"},
        {"servo parameters,1\nepoch,soon\n", "line 2: the epoch 'soon' is no whole number"},
        {start + para + ",0,,,1\nCh1.M1_T_servo_3<.mM1_fetext_31>,0,,,1\n",
            "line 7: the variable 'Ch1.M1_T_servo_3<.mM1_fetext_31>' holds no parameters of a servo"},
        {start + "Ch1.M2_T_servo_3<.mM2_servo_para_3>,0,,,1\n",
            "line 6: the variable 'Ch1.M2_T_servo_3<.mM2_servo_para_3>' belongs to machine M2, this file is "
            "of M1"},
        {start + para + ",-1,,,1\n", "line 6: the element '-1' is no whole number from 0 on"},
        {start + para + ",0.5,,,1\n", "line 6: the element '0.5' is no whole number from 0 on"},
        {start + para + ",0,,,\n", "line 6: the value '' is no number such as 35.5"},
        {start + para + ",0,,,\"35,5\"\n", "line 6: the value '35,5' is no number such as 35.5"},
        {start + para + ",0,,,nan\n", "line 6: the value 'nan' is no number such as 35.5"},
        {start + para + ",0\n", "line 6: the value '' is no number such as 35.5"},
        {start + para + ",0,,,1\n" + para + ",1,,,1\n" + para + ",0,,,1\n",
            "line 8: element 0 of this variable stands in line 6 too"},
        {start + "\"" + para, "line 6: a quote is not closed"},
    };
    for (const Case& one : cases)
        EXPECT_EQ(errorOf(one.text), one.error);
}

} // namespace servopanel::testing

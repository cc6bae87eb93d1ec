#include "check/planted.h"

#include "jet/servo_defs/definition_list.h"
#include "jet/servo_defs/tool.h"

#include <gtest/gtest.h>

namespace servopanel::check::tests {

namespace {

constexpr const char* project = "project.json";
constexpr const char* program = "Parameter/Program.ini";
constexpr const char* footer = "Servo/Servo.ini";
constexpr const char* database = "Servo/Servo.mdb";

using Plant = std::function<void(const ProjectCopy&)>;

Plant replaced(const std::string& file, const std::string& from, const std::string& to)
{
    return [=](const ProjectCopy& copy) { copy.replace(file, from, to); };
}
Plant appended(const std::string& file, const std::string& text)
{
    return [=](const ProjectCopy& copy) { copy.append(file, text); };
}
Plant written(const std::string& file, const std::string& content)
{
    return [=](const ProjectCopy& copy) { copy.write(file, content); };
}
Plant without(const std::string& file, const std::string& beginning)
{
    return [=](const ProjectCopy& copy) { copy.removeLine(file, beginning); };
}

// The definitions go through their CSV form.
Plant definitions(const std::function<void(std::string& csv)>& change)
{
    return [=](const ProjectCopy& copy) {
        std::string csv = jet::toCsv(jet::loadDefinitions(copy.place(database)).rows);
        change(csv);
        copy.write("definitions.csv", csv);
        jet::ToolOutput output;
        jet::runTool(
            {"create", copy.place(database).string(), copy.place("definitions.csv").string(), "--force"},
            output);
        EXPECT_EQ(output.errors, "");
        copy.remove("definitions.csv");
    };
}

void replaceIn(std::string& text, const std::string& from, const std::string& to)
{
    const std::size_t at = text.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    text.replace(at, from.size(), to);
}

} // namespace

const std::vector<Planted>& plantedMistakes()
{
    static const std::vector<Planted> mistakes{
        // project.json
        {"a misspelt member", replaced(project, " \"input\": -1,", " \"inptu\": -1,"),
            {{project, "\"inptu\"", "inptu: is not known here: the panel goes on without it"}}},
        {"a wrong type", replaced(project, "\"level\": 5", "\"level\": \"five\""),
            {{project, "\"level\"", "level: must be a whole number: the panel goes on without it"}}},
        {"a number that another language has",
            replaced(project, "{\"number\": 4, \"code\": \"zh\", \"name\": \"中文\"}",
                "{\"number\": 4, \"code\": \"zh\", \"name\": \"中文\"},\n  {\"number\": 4, \"code\": "
                "\"fr\"}"),
            {{project, "\"code\": \"fr\"",
                "languages/4/number: is that of another language: the panel goes on without it"}}},
        {"a language that is not listed", replaced(project, " \"language\": 1,", " \"language\": 9,"),
            {{project, "\"language\": 9",
                "language: is not among the languages: the panel goes on without it"}}},
        {"a direction that there is not",
            replaced(project, "\"direction\": \"rtl\"", "\"direction\": \"left\""),
            {{project, "\"left\"",
                "languages/2/direction: must be \"ltr\" or \"rtl\": the panel goes on without it"}}},
        {"a variable twice",
            replaced(project, "  \"parameter<.mit_navi>\": true,",
                "  \"parameter<.mit_navi>\": true,\n  \"parameter<.mit_navi>\": false,"),
            {{project, "\"parameter<.mit_navi>\": false",
                "variables/parameter<.mit_navi>: is there twice; the last one counts"}}},
        {"another width than the screen's",
            replaced(project, "\"parameter<.aufloesung>\": 1280", "\"parameter<.aufloesung>\": 1024"),
            {{project, "\"parameter<.aufloesung>\"",
                "variables/parameter<.aufloesung>: differs from resolution, which is 1280; resolution "
                "counts"}}},
        {"a missing array", without(project, "  \"Ch1.M1_T_servo_3<.mM1_servo_para_ob_3>\""),
            {{project, "\"variables\": {",
                "variable \"Ch1.M1_T_servo_3<.mM1_servo_para_ob_3>\" is missing: the panel reports it and "
                "shows nothing of it (the page of servo 3 of machine M1, and 1 more place)"}}},
        {"a missing fault text", without(project, "  \"Ch1.M1_T_servo_9<.mM1_fetext_91>\""),
            {{project, "\"variables\": {",
                "variable \"Ch1.M1_T_servo_9<.mM1_fetext_91>\" is missing: the panel reports it and shows "
                "nothing of it (diagnosis page 1 of servo 9 of machine M1)"}}},
        {"a missing variable of an input", without(project, "  \"Ch-1.intern_v<.l2_07>\""),
            {{project, "\"variables\": {",
                "variable \"Ch-1.intern_v<.l2_07>\" is missing: what the input shows is not written to it "
                "(the page of servo 1 of machine M1, and 2 more places)"}}},
        {"too short an array",
            replaced(project, "\"Ch1.M2_T_servo_1<.mM2_servo_para2_ob_1>\": [",
                "\"Ch1.M2_T_servo_1<.mM2_servo_para2_ob_1>\": [1.0], \"was\": ["),
            {{project, "mM2_servo_para2_ob_1",
                 "variable \"Ch1.M2_T_servo_1<.mM2_servo_para2_ob_1>\" has too few elements (1): the items "
                 "behind them stay empty (the page of servo 1 of machine M2, and 1 more place)"},
                {project, "\"was\":", "nobody reads the variable \"was\"; is it misspelt?"}}},
        {"a text for an array",
            replaced(project, "\"Ch1.M2_T_servo_2<.mM2_servo_zeich_2>\": ",
                "\"Ch1.M2_T_servo_2<.mM2_servo_zeich_2>\": \"x\", \"was too\": "),
            {{project, "mM2_servo_zeich_2",
                 "variable \"Ch1.M2_T_servo_2<.mM2_servo_zeich_2>\" is of the wrong type: the panel reports "
                 "it and shows nothing of it (the page of servo 2 of machine M2, and 2 more places)"},
                {project, "\"was too\":", "nobody reads the variable \"was too\"; is it misspelt?"}}},
        {"a value beyond its limits",
            replaced(project, "\"Ch1.M1_T_servo_8<.mM1_servo_para_8>\": [0.85,",
                "\"Ch1.M1_T_servo_8<.mM1_servo_para_8>\": [2.85,"),
            {{project, "mM1_servo_para_8>",
                "setpoint 1 starts with 2.85, outside its limits 0.1 to 2: the mask does not take this value "
                "back (the page of servo 8 of machine M1)"}}},
        {"limits the wrong way round",
            replaced(project, "\"Ch1.M1_T_servo_8<.mM1_servo_para_ob_8>\": [2.0, 600.0",
                "\"Ch1.M1_T_servo_8<.mM1_servo_para_ob_8>\": [2.0, 60.0"),
            {{project, "mM1_servo_para_ob_8>",
                "setpoint 2 has the lower limit 80 above the upper limit 60: no value can be entered there "
                "(the page of servo 8 of machine M1)"}}},
        {"a decimal comma",
            replaced(project, "\"Ch1.M2_T_servo_4<.mM2_servo_para_4>\": [",
                "\"Ch1.M2_T_servo_4<.mM2_servo_para_4>\": [0, "),
            {{project, "mM2_servo_para_4",
                "variable \"Ch1.M2_T_servo_4<.mM2_servo_para_4>\" has 21 elements, of which the first 20 are "
                "used: the operator never sees the others"}}},
        {"a variable without a name",
            replaced(project, "  \"parameter<.mit_navi>\": true,",
                "  \"parameter<.mit_navi>\": true,\n  \"\": 1,"),
            {{project, "\"\": 1,", "nobody reads the variable \"\"; is it misspelt?"}}},
        {"too long an array",
            replaced(project, "\"Ch1.M2_T_servo_4<.mM2_servo_zeich_4>\": [",
                "\"Ch1.M2_T_servo_4<.mM2_servo_zeich_4>\": [1.0, "),
            {{project, "mM2_servo_zeich_4",
                "variable \"Ch1.M2_T_servo_4<.mM2_servo_zeich_4>\" has 3 elements, of which the first 2 are "
                "used: the operator never sees the others"}}},
        {"a number for a fault text",
            replaced(project, "\"Ch1.M1_T_servo_3<.mM1_fetext_31>\": ",
                "\"Ch1.M1_T_servo_3<.mM1_fetext_31>\": 7, \"the text\": "),
            {{project, "mM1_fetext_31",
                 "variable \"Ch1.M1_T_servo_3<.mM1_fetext_31>\" is no text: the operator reads the number as "
                 "the fault"},
                {project, "\"the text\"", "nobody reads the variable \"the text\"; is it misspelt?"}}},
        {"a machine that there is not",
            replaced(
                project, "\"Ch-1.intern<.aktuelle_maschine>\": 1", "\"Ch-1.intern<.aktuelle_maschine>\": 3"),
            {{project, "aktuelle_maschine",
                "variable \"Ch-1.intern<.aktuelle_maschine>\" must be from 1 to 2, the number of the machine "
                "that is shown: the panel finds no servos"}}},
        {"a screen that a key leads to", replaced(project, ", \"1231\": \"Grundbild\"", ""),
            {{project, "\"screens\"",
                "screens: there is no screen 1231, to which a footer key leads: the operator sees a number "
                "instead of its title (the menu of machine M2)"}}},
        {"a kind of value that there is not", replaced(project, "\"kind\": \"lag\"", "\"kind\": \"lagg\""),
            {{project, "\"lagg\"",
                "machine/servos/0/values/1/kind: \"lagg\" is not known: the panel goes on without it"}}},
        {"a misspelt variable",
            replaced(project, "  \"parameter<.mit_navi>\": true,",
                "  \"parameter<.mit_navi>\": true,\n  \"Ch1.M1_T_servo_4<.mM1_servo_para_ob_4\": [1, 2],"),
            {{project, "servo_para_ob_4\"",
                "nobody reads the variable \"Ch1.M1_T_servo_4<.mM1_servo_para_ob_4\"; is it misspelt?"}}},
        {"a variable with the numbers of two servos",
            replaced(project, "  \"parameter<.mit_navi>\": true,",
                "  \"parameter<.mit_navi>\": true,\n  \"Ch1.M1_T_servo_4<.mM1_servo_para_5>\": [1, 2],"),
            {{project, "servo_4<.mM1_servo_para_5>",
                "nobody reads the variable \"Ch1.M1_T_servo_4<.mM1_servo_para_5>\"; is it misspelt?"}}},
        {"variables of a servo that is not in use",
            replaced(project, "  \"parameter<.mit_navi>\": true,",
                "  \"parameter<.mit_navi>\": true,\n  \"Ch1.M1_T_servo_44<.mM1_servo_para_ob_44>\": [1, 2],"
                "\n  \"Ch1.M1_T_servo_44<.mM1_servo_diag_442>\": [1, 2],"),
            {}},
        // Texts
        {"a line without a sign",
            replaced("Texts/de.txt", "Servo.M1.Servo1.2 = ", "Servo.M1.Servo1.2 - x\nServo.M1.Servo1.2 = "),
            {{"Texts/de.txt", "Servo1.2 - x", "no \"=\"; a line is \"key = text\""}}},
        {"a key twice", appended("Texts/de.txt", "Servo.M1.Servo1.3 = again\n"),
            {{"Texts/de.txt", "= again",
                "the key \"Servo.M1.Servo1.3\" stands here again; this text counts"}}},
        {"a missing text", without("Texts/zh.txt", "Servo.M1.Servo5.3 ="),
            {{"Texts/zh.txt", "",
                "\"Servo.M1.Servo5.3\" is missing here, Texts/de.txt has it: the operator sees the key, or "
                "nothing (the page of servo 5 of machine M1)"}}},
        {"a text in no language",
            [](const ProjectCopy& copy) {
                for (const char* const code : {"de", "en", "ar", "zh"})
                    copy.removeLine(std::string{"Texts/"} + code + ".txt", "Servo.M2.Servo2.1 =");
            },
            {{"Texts", "",
                "\"Servo.M2.Servo2.1\" is missing in all languages: the operator sees the key (the page of "
                "servo 2 of machine M2)"}}},
        {"an empty text",
            [](const ProjectCopy& copy) {
                copy.removeLine("Texts/ar.txt", "Servo.M1.Servo5.4 =");
                copy.append("Texts/ar.txt", "Servo.M1.Servo5.4 =\n");
            },
            {{"Texts/ar.txt", "",
                "\"Servo.M1.Servo5.4\" is empty here, Texts/de.txt has a text: the operator sees nothing "
                "(the page of servo 5 of machine M1)"}}},
        {"a line in another encoding",
            appended("Texts/en.txt",
                "# Gr\xF6\xDF"
                "e\n"),
            {{"Texts/en.txt", "# Gr\xF6", "is not in UTF-8; read as Windows-1252; save the file as UTF-8"}}},
        {"texts of a language that the project does not have", written("Texts/it.txt", "a = b\n"),
            {{"Texts/it.txt", "",
                "no language of project.json has the code \"it\": nobody reads this file"}}},
        {"a word of the panel that it has itself", without("Texts/ar.txt", "Panel.Cancel ="), {}},
        {"a file name in other letters",
            [](const ProjectCopy& copy) {
                fs::copy_file(copy.place("Standard/OK.wmf"), copy.place("Standard/ok.WMF"));
            },
            {{"Standard/ok.WMF", "",
                "differs from Standard/OK.wmf in capital and small letters only: one of them is not read"}}},
        // Parameter/Program.ini
        {"a line that says nothing", replaced(program, "ServoPic1=1\n", "ServoPic1=1\nServoPic 1\n"),
            {{program, "ServoPic 1", "no \"=\"; nobody reads this line"}}},
        {"an entry twice", replaced(program, "Servo2=2\n", "Servo2=2\nSERVO2=7\n"),
            {{program, "SERVO2=7", "[1Machine] SERVO2 stands in line 11 already; nobody reads this one"}}},
        {"a misspelt entry", replaced(program, "ServoPic3=1\n", "ServoPick3=1\n"),
            {{program, "ServoPick3", "[1Machine] ServoPick3 is read by nobody; it may be misspelt"}}},
        {"a switch that is none", replaced(program, "Diag2Servo6=FALSE", "Diag2Servo6=NO"),
            {{program, "=NO",
                "[1Machine] Diag2Servo6 is \"NO\", which is neither TRUE nor FALSE and counts as FALSE"}}},
        {"a number that is none", replaced(program, "ServoPic5=1\n", "ServoPic5=two\n"),
            {{program, "=two",
                "[1Machine] ServoPic5 is \"two\", which is no whole number; the library takes what digits "
                "come first, or 0"}}},
        {"a servo that cannot be", replaced(program, "Servo10=14", "Servo10=140"),
            {{program, "=140",
                 "[1Machine] Servo10 is \"140\", which is not from 1 to 50: the menu has a key that leads to "
                 "no servo"},
                {"Servo/Servo_M1_14.ini", "", "nobody reads this file; its name may be misspelt"},
                {database, "",
                    "row 140 (M1, Ch1.M1_T_servo_14<.mM1_servo_para_14>, 0) and 4 more: the project has no "
                    "servo 14 of machine M1: it opens no input"}}},
        {"a section twice", appended(program, "[PROJECT]\nServoWithMenu=FALSE\n"),
            {{program, "[PROJECT]", "section [PROJECT] stands in line 1 already; nobody reads this one"}}},
        // Servo/Servo.ini
        {"a missing key", replaced(footer, "F6=TRUE\n", ""),
            {{footer, "[Machine1]", "[Machine1] F6 is missing: the key may go by that of another machine"}}},
        {"blanks that count", replaced(footer, "F5=TRUE", "F5 =TRUE"),
            {{footer, "F5 =", "[Machine1] F5 has blanks beside its name: the library does not find it"}}},
        {"a flag that is none", replaced(footer, "F10=TRUE", "F10=YES"),
            {{footer, "=YES",
                "[Machine1] F10 is \"YES\", which is neither TRUE nor FALSE: the operator has no such key"}}},
        {"a key that there is not", appended(footer, "F12=Standard\\F_Exit.gif\n"),
            {{footer, "F12=", "[Footer] F12 is read by nobody; it may be misspelt"}}},
        {"a key without a picture", replaced(footer, "F6=Standard\\F_Next.gif", "F6="),
            {{footer, "F6=\n", "[Footer] F6 names no picture: a message stops the operator at every page"}}},
        // Captions in the pictures
        {"a caption without a place", replaced("Servo/Servo_M1_2.ini", "1Y=", "1Z="),
            {{"Servo/Servo_M1_2.ini", "[Parameter]",
                 "[Parameter] 1Y is missing: a message stops the operator, and the caption stands at the "
                 "picture's edge (the page of servo 2 of machine M1)"},
                {"Servo/Servo_M1_2.ini", "1Z", "[Parameter] 1Z is read by nobody; it may be misspelt"}}},
        {"a colour that there is not", replaced("Servo/Servo_M1_3.ini", "1Col=", "1Col=blue\n;"),
            {{"Servo/Servo_M1_3.ini", "=blue",
                "[Parameter] 1Col is \"blue\", which is neither \"ws\" for white nor \"sw\" for black; the "
                "caption is black"}}},
        {"a caption beside the picture", replaced("Servo/Servo_M2_1.ini", "2X=7140", "2X=7940"),
            {{"Servo/Servo_M2_1.ini", "2X",
                "[Parameter] 2X is \"7940\", which is not from 0 to 7305: the caption stands beside the "
                "picture"}}},
        {"a caption far beside the picture", replaced("Servo/Servo_M2_2.ini", "1X=", "1X=99999\n;"),
            {{"Servo/Servo_M2_2.ini", "99999",
                "[Parameter] 1X is \"99999\", which is not from 0 to 7305: the caption stands beside the "
                "picture"}}},
        {"keys of a machine that there is not", appended(footer, "[Machine5]\nF1=TRUE\nF2=TRUE\n"),
            {{footer, "[Machine5]", "section [Machine5] is read by nobody; it may be misspelt"}}},
        {"captions of no servo", written("Servo/Servo_M1_99.ini", "[Parameter]\n1Col=ws\n"),
            {{"Servo/Servo_M1_99.ini", "", "nobody reads this file; its name may be misspelt"}}},
        // Definitions
        {"limits of the editor the wrong way round",
            definitions([](std::string& csv) { replaceIn(csv, ",1200,0,0,800,50,0", ",1200,0,0,50,800,0"); }),
            {{database, "",
                "row 1 (M1, Ch1.M1_T_servo_1<.mM1_servo_para_1>, 0): Min 800 is above Max 50: the definition "
                "editor shows limits that cannot be right"}}},
        {"a level that there is not",
            definitions([](std::string& csv) { replaceIn(csv, ",60,0,2,40,0,2", ",60,0,2,40,0,9"); }),
            {{database, "",
                "row 3 (M1, Ch1.M1_T_servo_1<.mM1_servo_para_1>, 2): there is no access level 9: nobody can "
                "change the item, or everybody can"}}},
        {"a row of a servo that there is not", definitions([](std::string& csv) {
             csv += "M1,Ch1.M1_T_servo_40<.mM1_servo_para_40>,9,0,0,8,1,1\n";
         }),
            {{database, "",
                "row 205 (M1, Ch1.M1_T_servo_40<.mM1_servo_para_40>, 0): the project has no servo 40 of "
                "machine M1: it opens no input"}}},
        // Pictures
        {"a picture missing for all resolutions",
            [](const ProjectCopy& copy) {
                for (const char* const width : {"800", "1024", "1280"})
                    copy.remove(std::string{"Servo/Servo_M1_6_"} + width + ".gif");
            },
            {{"Servo/Servo_M1_6_*.gif", "",
                "no such picture: it is not shown, and the panel says so; at 800, 1024 and 1280 (the first "
                "page of machine M1, and 1 more place)"}}},
        {"a picture missing for one resolution",
            [](const ProjectCopy& copy) { copy.remove("Servo/ServoMain_800.bmp"); },
            {{"Servo/ServoMain_800.bmp", "",
                "no such picture: it is not shown, and the panel says so (the page of servo 1 of machine M1, "
                "and 1 more place)"}}},
        {"a picture for the menu missing for one resolution",
            [](const ProjectCopy& copy) { copy.remove("Servo/Servo_S_M1_1_1024.gif"); },
            {{"Servo/Servo_S_M1_1_1024.gif", "",
                "no such picture, while another resolution has it: the menu's key shows the picture of the "
                "page instead (the first page of machine M1)"}}},
        {"the picture of an access level",
            [](const ProjectCopy& copy) { copy.remove("Standard/Pw2_1024.gif"); },
            {{"Standard/Pw2_1024.gif", "",
                "no such picture: it is not shown, and the panel says so (the menu of machine M1, and 3 more "
                "places)"}}},
        {"a text for a picture", written("Standard/OK.wmf", "OK"),
            {{"Standard/OK.wmf", "",
                "is no picture: it is not shown, and the panel says so (the page of servo 1 of machine M1, "
                "and 13 more places)"}}},
        {"a folder for a picture",
            [](const ProjectCopy& copy) {
                copy.remove("Standard/F_Exit_1280.gif");
                fs::create_directory(copy.place("Standard/F_Exit_1280.gif"));
            },
            {{"Standard/F_Exit_1280.gif", "",
                "is no file: it is not shown, and the panel says so (the menu of machine M1, and 34 more "
                "places)"}}},
        {"a picture of another size",
            [](const ProjectCopy& copy) {
                fs::copy_file(copy.place("Standard/F_Exit_800.gif"), copy.place("Servo/Servo_M1_9_800.gif"),
                    fs::copy_options::overwrite_existing);
            },
            {{"Servo/Servo_M1_9_800.gif", "",
                "has 60 x 37 pixels, its place has 304 x 85: it is cut off, or does not fill its place (the "
                "first page of machine M1, and 1 more place)"}}},
    };
    return mistakes;
}

} // namespace servopanel::check::tests

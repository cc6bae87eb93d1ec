#include "servo_page_values/page.h"

namespace servopanel::servo_page::tests {

namespace {

using std::to_string;

// "[f(first), ..., f(last)]"
template <class F>
std::string list(int first, int last, F value)
{
    std::string text = "[";
    for (int i = first; i <= last; ++i) {
        if (i > first) text += ", ";
        text += to_string(value(i));
    }
    return text + "]";
}

int setpoint(int field) { return 10 * field; }
int low(int field) { return field; }
int high(int field) { return 1000 + field; }

// The values of one servo. Servo 3 shows what the functions above say, servo 5 has switches and drawing numbers of its
// own.
std::string servo(const std::string& number, const std::string& word, const std::string& drawingNumbers)
{
    const auto line = [&](std::string_view family, const std::string& value, std::string_view page = {}) {
        return "var " + variable(family, page, number) + " = " + value + "\n";
    };
    std::string text;
    text += line("_servopassiv_", "false");
    text += line("_servo_para_", list(1, 20, setpoint));
    text += line("_servo_para_un_", list(1, 20, low));
    text += line("_servo_para_ob_", list(1, 20, high));
    text += line("_servo_para2_", list(21, 24, setpoint));
    text += line("_servo_para2_un_", list(21, 24, low));
    text += line("_servo_para2_ob_", list(21, 24, high));
    text += line("_servo_schalt_", word);
    text += line("_servo_zeich_", drawingNumbers);
    for (const std::string page : {"1", "2"}) {
        text += line("_servo_diag_", list(101, 140, [](int item) { return item; }), page);
        text += line("_fetext_", "\"Fault " + page + "\"", page);
    }
    text += line("_servoaender_", "0");
    return text;
}

std::string setUp()
{
    return R"(var parameter<.aufloesung> = 1280
var Ch-1.param_client<.arabisch> = false
var Ch-1.intern<.ocxname> = ""
var Ch-1.intern<.aktuelle_maschine> = 1
var Ch-1.intern<.passwort> = 2
var Ch-1.intern<.servo_zeiger> = 1
var parameter<.maschinenbez_1> = "M1"
var parameter<.servo_anzahl_1> = 2
var parameter<.mit_navi> = false
var parameter<.maschinenanzahl> = 1
file Parameter\Program.ini
[Project]
ServoWithMenu=TRUE
[1Machine]
Servo1=3
Servo2=5
Diag2Servo1=TRUE
end
file Servo\Servo.ini
[Machine1]
F1=TRUE
F2=FALSE
F3=TRUE
F4=TRUE
F9=TRUE
[Footer]
F1=Standard\Home.gif
F3=Standard\Pw
F4=Standard\Four.gif
F9=Standard\Machine.gif
end
text Standard.15000 = No permission
)" + servo("3", "5", "[123456789, 7000012]")
        + servo("5", "0", "[0, 0]");
}

bool begins(std::string_view line, std::initializer_list<std::string_view> starts)
{
    for (const std::string_view start : starts)
        if (line.substr(0, start.size()) == start) return true;
    return false;
}

template <class Test>
std::string select(std::string_view trace, Test wanted)
{
    std::string result;
    while (!trace.empty()) {
        const std::size_t end = trace.find('\n');
        const std::string_view line = trace.substr(0, end);
        if (wanted(line)) result += std::string{line} + "\n";
        if (end == std::string_view::npos) break;
        trace.remove_prefix(end + 1);
    }
    return result;
}

const std::string grey = "8421504";

bool isLeft(int field) { return field <= 10 || field == 21 || field == 22; }

std::string setpointName(int field)
{
    return std::string{"ServoMain.Sollwert"} + (isLeft(field) ? "L(" : "R(") + to_string(field) + ")";
}

std::string read(std::string_view family, const std::string& value)
{
    return "read " + variable(family) + " = " + value + "\n";
}

std::string values(std::string_view family, int first, int last, const Fields& marked)
{
    std::string text = read(family, list(first, last, setpoint));
    for (int field = first; field <= last; ++field)
        if (marked.count(field) == 0)
            text += "put " + setpointName(field) + ".8 = " + to_string(setpoint(field)) + "\n";
    return text;
}

template <class F>
std::string limits(std::string_view family, const std::string& member, int first, int last, F limit)
{
    std::string text = read(family, list(first, last, limit));
    for (int field = first; field <= last; ++field)
        text += "put " + setpointName(field) + "." + member + " = \"" + to_string(limit(field)) + "\"\n";
    return text;
}

std::string switches(const Fields& marked)
{
    const std::string state[]{"ServoMain.SchalterL(31).0x68030000 = 1",
        "ServoMain.SchalterL(32).0x68030000 = 0", "ServoMain.SchalterR(33).0x68030000 = 4",
        "ServoMain.SchalterR(34).0x68030000 = 0"};
    std::string text = read("_servo_schalt_", "5");
    for (int i = 0; i < 4; ++i)
        if (marked.count(31 + i) == 0) text += "put " + state[i] + "\n";
    return text;
}

std::string drawingNumbers(const Fields& marked)
{
    std::string text = read("_servo_zeich_", "[123456789, 7000012]");
    if (marked.count(41) == 0)
        text += R"(put ServoMain.ZeichnungL(41).28 = "123"
put ServoMain.ZeichnungL(43).28 = "45"
put ServoMain.ZeichnungL(45).28 = "6789"
)";
    if (marked.count(42) == 0)
        text += R"(put ServoMain.ZeichnungR(42).28 = "007"
put ServoMain.ZeichnungR(44).28 = "00"
put ServoMain.ZeichnungR(46).28 = "0012"
)";
    return text;
}

} // namespace

std::string variable(std::string_view family, std::string_view page, std::string_view servo)
{
    const std::string number{servo};
    return "Ch1.M1_T_servo_" + number + "<.mM1" + std::string{family} + number + std::string{page} + ">";
}

Page::Page(std::string_view more)
{
    replay_.run(setUp() + std::string{more});
    start_ = replay_.run("create\nshow\n");
}

std::string Page::state(std::string_view object)
{
    const std::string answer = holding(run("get " + std::string{object} + "\n"), "state ");
    const std::size_t value = answer.find(" = ");
    return value == std::string::npos ? answer : answer.substr(value + 3, answer.size() - value - 4);
}

std::string levelFive() { return "var Ch-1.intern<.passwort> = 5\n"; }

std::string definition(std::string_view family, int element, int level)
{
    return "db Servo\\Servo.mdb M1 " + variable(family) + " " + to_string(element) + " 0 1000 1 99 "
        + to_string(level) + "\n";
}

std::string definitions(int level)
{
    std::string text;
    for (int element = 0; element < 20; ++element)
        text += definition("_servo_para_", element, level);
    for (int element = 0; element < 4; ++element)
        text += definition("_servo_para2_", element, level) + definition("_servo_schalt_", element, level);
    return text + definition("_servo_zeich_", 0, level) + definition("_servo_zeich_", 1, level);
}

std::string beginning(std::string_view trace, std::initializer_list<std::string_view> starts)
{
    return select(trace, [&](std::string_view line) { return begins(line, starts); });
}

std::string without(std::string_view trace, std::initializer_list<std::string_view> starts)
{
    return select(trace, [&](std::string_view line) { return !begins(line, starts); });
}

std::string holding(std::string_view trace, std::string_view text)
{
    return select(trace, [&](std::string_view line) { return line.find(text) != std::string_view::npos; });
}

std::size_t count(std::string_view trace, std::string_view text)
{
    std::size_t found = 0;
    for (std::size_t at = trace.find(text); at != std::string_view::npos; at = trace.find(text, at + 1))
        ++found;
    return found;
}

std::string familyLines(std::string_view family, const Fields& marked)
{
    if (family == "_servo_para_") return values(family, 1, 20, marked);
    if (family == "_servo_para_un_") return limits(family, "22", 1, 20, low);
    if (family == "_servo_para_ob_") return limits(family, "21", 1, 20, high);
    if (family == "_servo_para2_") return values(family, 21, 24, marked);
    if (family == "_servo_para2_un_") return limits(family, "22", 21, 24, low);
    if (family == "_servo_para2_ob_") return limits(family, "21", 21, 24, high);
    if (family == "_servo_schalt_") return switches(marked);
    return drawingNumbers(marked);
}

std::string refresh(const Fields& marked, const std::map<std::string, std::string>& instead)
{
    std::string text;
    for (const std::string family : {"_servo_para_", "_servo_para_un_", "_servo_para_ob_", "_servo_para2_",
             "_servo_para2_un_", "_servo_para2_ob_", "_servo_schalt_", "_servo_zeich_"}) {
        const auto other = instead.find(family);
        text += other == instead.end() ? familyLines(family, marked) : other->second;
    }
    return text;
}

std::string unreadable(std::string_view family, int dependents)
{
    const std::string name = variable(family);
    return "read " + name + " failed\nerror -2147467259 \"Ma WerteLesen\" \"Variable '" + name
        + "' cannot be read\"\n" + mismatches("Ma WerteLesen", dependents);
}

std::string mismatches(std::string_view procedure, int times)
{
    std::string text;
    for (int i = 0; i < times; ++i)
        text += "error 13 \"" + std::string{procedure} + "\" \"Type mismatch\"\n";
    return text;
}

std::string inputs(const Fields& locked, const Fields& green)
{
    const auto put = [](const std::string& object, const std::string& value) {
        return "put ServoMain." + object + " = " + value + "\n";
    };
    const auto captions = [&](const std::string& half, int field, bool setpointRow) {
        const std::string place = "(" + to_string(field) + ").19";
        const std::string colour = locked.count(field) ? grey : "0";
        std::string text = put("Beschriftung" + half + place, colour);
        if (setpointRow)
            text += put("Beschriftung" + half + "2" + place, colour) + put("Einheit" + half + place, colour);
        return text;
    };
    std::string text;
    for (int field = 1; field <= 24; ++field) {
        const bool isLocked = locked.count(field) != 0;
        text += "put " + setpointName(field) + ".Enabled = " + (isLocked ? "false\n" : "true\n");
        if (isLocked || green.count(field) == 0)
            text += "put " + setpointName(field) + ".-513 = " + (isLocked ? grey : "0") + "\n";
        text += captions(isLeft(field) ? "L" : "R", field, true);
    }
    for (int field = 31; field <= 34; ++field) {
        const std::string half = field <= 32 ? "L" : "R";
        text += put("Schalter" + half + "(" + to_string(field) + ").0x68030001",
                    locked.count(field) ? "false" : "true")
            + captions(half, field, false);
    }
    for (int field = 41; field <= 42; ++field) {
        const std::string half = field == 41 ? "L" : "R";
        const bool isLocked = locked.count(field) != 0;
        for (int item = field; item <= field + 4; item += 2)
            text +=
                put("Zeichnung" + half + "(" + to_string(item) + ").Enabled", isLocked ? "false" : "true");
        for (int item = field; item <= field + 4; item += 2)
            if (isLocked || green.count(item) == 0)
                text += put("Zeichnung" + half + "(" + to_string(item) + ").19", isLocked ? grey : "0");
        text += captions(half, field, false);
    }
    return text;
}

std::string released()
{
    return R"(call ServoMain.Fußzeile.0x68030004(1, true)
call ServoMain.Fußzeile.0x68030004(3, true)
call ServoMain.Fußzeile.0x68030004(6, true)
read parameter<.maschinenanzahl> = 1
call ServoMain.Fußzeile.0x68030004(10, true)
call ServoMain.Fußzeile.0x68030004(11, true)
)";
}

std::string withdrawn()
{
    std::string text;
    for (int key = 1; key <= 11; ++key) {
        const std::string number = to_string(key);
        text += "call ServoMain.Fußzeile.0x68030008(" + number + ") -> 12632256\n"
            + "call ServoMain.Fußzeile.0x68030004(" + number + ", false)\n"
            + "call ServoMain.Fußzeile.0x68030006(" + number + ", 12632256)\n";
    }
    return text;
}

std::string normalKeys()
{
    return R"(call ServoMain.Fußzeile.0x68030007(11, "Standard\F_Exit_1280.gif")
call ServoMain.Fußzeile.0x68030005(10, 1110)
call ServoMain.Fußzeile.0x68030005(11, 10000)
call ServoMain.Fußzeile.0x68030005(31, 10000)
)";
}

std::string confirmKeys()
{
    return R"(call ServoMain.Fußzeile.0x68030007(10, "Standard\OK.wmf")
call ServoMain.Fußzeile.0x68030007(11, "Standard\ESC.wmf")
call ServoMain.Fußzeile.0x68030005(10, 10000)
call ServoMain.Fußzeile.0x68030005(11, 10000)
call ServoMain.Fußzeile.0x68030004(10, true)
call ServoMain.Fußzeile.0x68030004(11, true)
)";
}

} // namespace servopanel::servo_page::tests

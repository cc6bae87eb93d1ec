#include "monkey/random_operator.h"

#include "monkey/parameters.h"
#include "monkey/project.h"
#include "servo_page/felder.h"

#include <array>

namespace servopanel::monkey {

namespace {

constexpr int highestLevel = 5;
constexpr int mostOfLowerLimits = 20; // now and then above the upper ones

std::string text(std::string_view first, int number) { return std::string{first} + std::to_string(number); }

std::string setting(const std::string& name, std::string_view value)
{
    std::string command = "var ";
    return command.append(name).append(" = ").append(value);
}

} // namespace

int RandomOperator::upTo(int most) { return static_cast<int>(random_() % static_cast<unsigned>(most + 1)); }

std::string RandomOperator::number()
{
    switch (upTo(5)) {
    case 0: return "0";
    case 1: return std::to_string(upTo(100));
    case 2: return std::to_string(upTo(99)) + "." + std::to_string(upTo(99));
    case 3: return "-" + std::to_string(upTo(50));
    case 4: return "1000000000";
    default: return std::to_string(upTo(9));
    }
}

// A number within the limits of most inputs.
std::string RandomOperator::valid()
{
    const std::string whole = std::to_string(isRare(60) ? upTo(9) : upTo(49));
    return isRare(75) ? whole : whole + "." + std::to_string(upTo(9));
}

// One of the inputs of the page.
std::string RandomOperator::input()
{
    switch (upTo(8)) {
    case 0: return text("SchalterL ", 31 + upTo(1));
    case 1: return text("SchalterR ", 33 + upTo(1));
    case 2: return text("ZeichnungL ", 41 + 2 * upTo(2));
    case 3: return text("ZeichnungR ", 42 + 2 * upTo(2));
    case 4: return text("SollwertL ", 21 + upTo(1));
    case 5: return text("SollwertR ", 23 + upTo(1));
    case 6: return text("SollwertR ", 11 + upTo(9));
    default: return text("SollwertL ", 1 + upTo(9));
    }
}

// The first input that shows something of the family.
std::string RandomOperator::inputOf(const Family& family)
{
    const bool isDrawing = servo_page::istZeichnung(family.firstField);
    const bool isSwitch = servo_page::istSchalter(family.firstField);
    return text(isDrawing ? "ZeichnungL " : isSwitch ? "SchalterL " : "SollwertL ", family.firstField);
}

std::string RandomOperator::next()
{
    if (coming_.empty() && isRare(60)) setOut();
    if (!coming_.empty() && isRare(90)) {
        std::string step = std::move(coming_.front());
        coming_.pop_front();
        return step;
    }
    const int kind = upTo(99);
    if (kind < 80) return operation();
    if (kind < 91) return machine();
    return isRare(60) ? failure() : loss();
}

void RandomOperator::setOut()
{
    then("fail none");
    for (const std::string& command : preparation_)
        then(command);
    if (isRare(20)) then(projectFiles().front().bringBack); // the definitions, as an engineer restores them
    const int kind = upTo(99);
    openPage(kind < 25 ? highestLevel : 1 + upTo(highestLevel - 1));
    if (kind < 20) return editDefinitions();
    if (kind < 32) return lookAround();
    if (kind < 40) return leaveAndComeBack();
    if (kind < 50) return confirmWithFailure();
    if (kind < 54) return changeResolution();
    for (int edits = 1 + upTo(2); edits > 0; --edits)
        edit();
}

// The page reads the access level when its control is made.
void RandomOperator::openPage(int level)
{
    for (const char* const close : {"mask cancel", "ini cancel", "key 11", "key 11"})
        then(close);
    if (level == highestLevel || isRare(30)) {
        then(text("var Ch-1.intern<.passwort> = ", level));
        then("var Ch-1.intern<.servo_zeiger> = 0");
        then("input -1");
        for (const char* const anew : {"terminate", "create", "show"})
            then(anew);
    }
    if (isRare(20)) then("scroll 1");
    const int place = upTo(static_cast<int>(std::size(servos)) - 1);
    opened_ = servos[place];
    const std::string key = std::to_string(place + 1) + " 100 100";
    then("menudown BildIm " + key);
    then("menuup BildIm " + key);
    if (isRare(25)) then(isRare(50) ? "key 6" : "key 5");
}

// Some inputs, and the end of it: confirmed, discarded, or left for what comes next.
void RandomOperator::edit()
{
    for (int inputs = 1 + upTo(3); inputs > 0; --inputs) {
        const std::string touched = input();
        then("touch " + touched);
        if (isRare(10)) then("timer");
        if (isRare(10)) then(machine());
        if (isRare(5)) then(text("language ", upTo(3)));
        if (!touched.starts_with("Schalter"))
            then(isRare(15) ? std::string{"mask cancel"} : "mask " + valid());
        if (isRare(15)) then("timer");
        if (isRare(8)) then(text("pagescroll ", 1 + upTo(200)));
    }
    if (isRare(10)) then(failure());
    if (!isRare(10)) then(isRare(75) ? "key 10" : "key 11");
}

// A confirm that does not reach the machine as a whole, and a second one that does.
void RandomOperator::confirmWithFailure()
{
    const Family& family = families[upTo(3)];
    for (const std::string& touched : {inputOf(family), input()}) {
        then("touch " + touched);
        then("mask " + valid());
    }
    // The page reads what it shows before it reads what it writes.
    const std::string name = servoVariable(opened_, family.name);
    then(isRare(50) ? "fail write " + name + " 1" : "fail read " + name + (isRare(70) ? " 2" : " 1"));
    then("key 10");
    then("timer");
    then("key 10");
}

// What was entered for one servo and given up must not come up on another one, nor when it is shown again.
void RandomOperator::leaveAndComeBack()
{
    then("touch " + input());
    then(isRare(50) ? std::string{"mask cancel"} : "mask " + valid());
    then("key 11");
    then(isRare(50) ? "key 6" : "key 5");
    if (isRare(50)) edit();
    then(isRare(50) ? "key 5" : "key 6");
    const std::string touched = input();
    then("touch " + touched);
    then("mask cancel");
    then(text("touch SchalterL ", 31 + upTo(1)));
    then("key 10");
}

void RandomOperator::editDefinitions()
{
    then("key 4");
    for (int inputs = 1 + upTo(1); inputs > 0; --inputs) {
        then("touch " + input());
        const int low = upTo(20);
        std::string limits = "ini " + std::to_string(low);
        limits.append(" ")
            .append(std::to_string(low + upTo(900)))
            .append(" ")
            .append(std::to_string(1 + upTo(4)));
        then(isRare(20) ? "ini cancel" : limits);
    }
    if (isRare(10)) then("fail db update 1");
    then("key 4");
    edit();
}

void RandomOperator::lookAround()
{
    then("key 10");
    for (int looks = 2 + upTo(3); looks > 0; --looks) {
        then(isRare(50) ? "key 7" : "key 8");
        then("timer");
        if (isRare(50)) then(text("language ", upTo(3)));
        if (isRare(50)) then(isRare(50) ? "key 6" : "key 5");
    }
    then("key 10");
    for (int scrolls = 1 + upTo(3); scrolls > 0; --scrolls)
        then(text("pagescroll ", 1 + upTo(300)));
    edit();
}

// A panel takes up its resolution when it is started.
void RandomOperator::changeResolution()
{
    constexpr std::array widths{800, 1024, 1280};
    then(text("var parameter<.aufloesung> = ", widths[static_cast<std::size_t>(upTo(2))]));
    openPage(highestLevel);
    edit();
}

std::string RandomOperator::operation()
{
    switch (upTo(24)) {
    case 0:
    case 1:
    case 2:
    case 3:
    case 4:
    case 5: return "touch " + input();
    case 6:
    case 7:
    case 8:
    case 9: return "mask " + number();
    case 10: return "mask cancel";
    case 11:
    case 12: return "key 10";
    case 13: return text("key ", 1 + upTo(10));
    case 14: return "key 11";
    case 15: return "key 4";
    case 16: return "ini " + number() + " " + number() + " " + std::to_string(upTo(5));
    case 17: return "ini cancel";
    case 18: return "timer";
    case 19: return text("language ", upTo(4));
    case 20: return text(upTo(1) == 0 ? "scroll " : "pagescroll ", 1 + upTo(5));
    case 21: return "menudown BildIm " + std::to_string(1 + upTo(2)) + " 100 100";
    case 22: return "menuup BildIm " + std::to_string(1 + upTo(2)) + " 100 100";
    case 23: return text("menukey ", 1 + upTo(10));
    default:
        switch (upTo(8)) {
        case 0: return "terminate";
        case 1: return "create";
        default: return "show";
        }
    }
}

// What the machine or an engineer changes meanwhile.
std::string RandomOperator::machine()
{
    const int servo = servos[upTo(2)];
    const auto numbers = [&](int count, int most = 120) {
        std::string list = "[";
        for (int i = 0; i < count; ++i)
            list.append(i == 0 ? "" : ", ").append(std::to_string(upTo(most))).append(".5");
        return list + "]";
    };
    switch (upTo(13)) {
    case 0: return text("var Ch-1.intern<.passwort> = ", upTo(6));
    case 1: return text("var Ch-1.intern<.servo_zeiger> = ", upTo(4) - 1);
    case 2: return setting(servoVariable(servo, "_servo_para_"), numbers(20));
    case 3: return setting(servoVariable(servo, "_servo_para2_"), numbers(4));
    case 4: return setting(servoVariable(servo, "_servo_schalt_"), std::to_string(upTo(20)));
    case 5: {
        std::string drawings = "[";
        drawings.append(std::to_string(upTo(999'999'999)))
            .append(", ")
            .append(std::to_string(upTo(99'999'999)));
        return setting(servoVariable(servo, "_servo_zeich_"), drawings + "]");
    }
    case 6: return setting(servoVariable(servo, "_servo_para_ob_"), numbers(20));
    case 7: return setting(servoVariable(servo, "_servo_para2_ob_"), numbers(4));
    case 8:
        return text(
            "var parameter<.aufloesung> = ", std::array{800, 1024, 1280}[static_cast<std::size_t>(upTo(2))]);
    case 9: return std::string{"var Ch-1.param_client<.arabisch> = "} + (upTo(1) == 0 ? "true" : "false");
    case 10:
        return setting(servoVariable(servo, "_servo_para_"), isRare(50) ? "\"no numbers\"" : "[1, 2, 3]");
    case 11: return setting(servoVariable(servo, "_servo_para_un_"), numbers(20, mostOfLowerLimits));
    case 12: return setting(servoVariable(servo, "_servo_para2_un_"), numbers(4, mostOfLowerLimits));
    default: return text("input ", upTo(1) - 1);
    }
}

std::string RandomOperator::failure()
{
    constexpr std::array<std::string_view, 6> unsure{"_servo_para_", "_servo_para2_", "_servo_schalt_",
        "_servo_zeich_", "_servo_para_ob_", "_servoaender_"};
    const std::string name = servoVariable(servos[upTo(2)], unsure[static_cast<std::size_t>(upTo(5))]);
    switch (upTo(8)) {
    case 0:
    case 1: return "fail read " + name + " " + std::to_string(1 + upTo(2));
    case 2:
    case 3: return "fail write " + name + " " + std::to_string(1 + upTo(2));
    case 4: return "fail load Servo\\ServoMenu_1280.bmp 2";
    case 5: return "fail read Ch-1.intern<.passwort> 1";
    case 6: return "fail write Ch-1.intern<.servo_zeiger> 1";
    case 7: return "fail db update 2";
    default: return "fail none";
    }
}

// A file goes, holds rubbish, or comes back.
std::string RandomOperator::loss()
{
    const std::vector<ProjectFile>& files = projectFiles();
    const ProjectFile& file = files[static_cast<std::size_t>(upTo(static_cast<int>(files.size()) - 1))];
    const int kind = upTo(9);
    if (kind < 3) return "lose " + file.name;
    if (kind < 4 && file.isText) return "file " + file.name + "\n[Machine1\n=;]F1=\n[Parameter]\n1Col\nend\n";
    return file.bringBack;
}

} // namespace servopanel::monkey

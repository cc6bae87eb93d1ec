#include "check/bad_projects.h"

#include "jet/servo_defs/definition_list.h"

#include <gtest/gtest.h>

#include <random>
#include <sys/stat.h>

namespace servopanel::check::tests {

namespace {

constexpr std::size_t someBytes = 5'000;

void spoilFile(const ProjectCopy& copy, const std::string& file) { copy.write(file, rubbish(someBytes)); }

void replaceByLoop(const ProjectCopy& copy, const std::string& file)
{
    copy.remove(file);
    fs::create_symlink(copy.place(file).filename(), copy.place(file));
}

void replaceByFolder(const ProjectCopy& copy, const std::string& file)
{
    copy.remove(file);
    fs::create_directory(copy.place(file));
}

void replaceByFile(const ProjectCopy& copy, const std::string& folder)
{
    copy.remove(folder);
    copy.write(folder, "no folder");
}

// Nobody ever writes to it, so that a reader would wait for ever.
void replaceByPipe(const ProjectCopy& copy, const std::string& file)
{
    copy.remove(file);
    ASSERT_EQ(::mkfifo(copy.place(file).c_str(), 0600), 0);
}

std::string large(const std::string& line, std::size_t size)
{
    std::string text;
    while (text.size() < size)
        text += line;
    return text;
}

} // namespace

std::string rubbish(std::size_t size)
{
    std::mt19937 numbers{1};
    std::string bytes;
    while (bytes.size() < size)
        bytes += static_cast<char>(numbers() & 0xFFU);
    return bytes;
}

const std::vector<BadProject>& badProjects()
{
    static const std::vector<BadProject> projects{
        {"HalfCopiedWithoutPictures", [](const ProjectCopy& copy) { copy.remove("Standard"); },
            {"Standard: no such folder"}},
        {"HalfCopiedWithoutServo", [](const ProjectCopy& copy) { copy.remove("Servo"); },
            {"Servo: no such folder", "Servo/Servo.ini: no such file", "Servo/Servo.mdb: no such file"}},
        {"HalfCopiedWithoutParameter", [](const ProjectCopy& copy) { copy.remove("Parameter"); },
            {"Parameter/Program.ini: no such file: the panel finds no servos"}},
        {"HalfCopiedWithoutTexts", [](const ProjectCopy& copy) { copy.remove("Texts"); },
            {"Texts/de.txt: its folder does not exist", "Texts/zh.txt: its folder does not exist"}},
        {"HalfCopiedDescription", [](const ProjectCopy& copy) { copy.cut("project.json"); },
            {"project.json:"}},
        {"HalfCopiedTexts", [](const ProjectCopy& copy) { copy.cut("Texts/en.txt"); }, {"Texts/en.txt: "}},
        {"HalfCopiedDatabase", [](const ProjectCopy& copy) { copy.cut("Servo/Servo.mdb"); },
            {"Servo/Servo.mdb: "}},
        {"HalfCopiedPicture",
            [](const ProjectCopy& copy) { fs::resize_file(copy.place("Servo/ServoMain_1280.bmp"), 9); },
            {"Servo/ServoMain_1280.bmp: is"}},
        {"NoLanguages",
            [](const ProjectCopy& copy) {
                copy.replace("project.json", "\"languages\": [", "\"languages\": [], \"tongues\": [");
            },
            {"project.json:7: languages: there is none", "project.json:7: tongues: is not known here"}},
        {"EmptyDescription", [](const ProjectCopy& copy) { copy.write("project.json", ""); },
            {"project.json:1: "}},
        {"RubbishForTheDescription", [](const ProjectCopy& copy) { spoilFile(copy, "project.json"); },
            {"project.json:1: "}},
        {"DescriptionOfBrackets",
            [](const ProjectCopy& copy) { copy.write("project.json", std::string(2'000'000, '[')); },
            {"project.json:1: "}},
        {"RubbishForTexts", [](const ProjectCopy& copy) { spoilFile(copy, "Texts/de.txt"); },
            {"Texts/de.txt:1: is not in UTF-8", "Texts/de.txt: "}},
        {"RubbishForOptions", [](const ProjectCopy& copy) { spoilFile(copy, "Parameter/Program.ini"); },
            {"Parameter/Program.ini: is no text"}},
        {"RubbishForKeys", [](const ProjectCopy& copy) { spoilFile(copy, "Servo/Servo.ini"); },
            {"Servo/Servo.ini: is no text"}},
        {"RubbishForCaptions", [](const ProjectCopy& copy) { spoilFile(copy, "Servo/Servo_M1_1.ini"); },
            {"Servo/Servo_M1_1.ini: is no text"}},
        {"RubbishForDefinitions", [](const ProjectCopy& copy) { spoilFile(copy, "Servo/Servo.mdb"); },
            {"Servo/Servo.mdb: "}},
        {"CsvForDefinitions",
            [](const ProjectCopy& copy) {
                copy.write(
                    "Servo/Servo.mdb", jet::toCsv(jet::loadDefinitions(copy.place("Servo/Servo.mdb")).rows));
            },
            {"Servo/Servo.mdb: is text, not a database; "}},
        {"OnlyPassiveServos",
            [](const ProjectCopy& copy) {
                for (const char* const servo : {"1", "2"}) {
                    const std::string number{servo};
                    const std::string name =
                        "\"Ch1.M1_T_servo_" + number + "<.mM1_servopassiv_" + number + ">\": ";
                    copy.replace("project.json", name + "false", name + "true");
                }
            },
            {"project.json:52: variable \"Ch1.M1_T_servo_1<.mM1_servopassiv_1>\" is among those of machine "
             "M1, of "
             "which all servos are passive: the menu is empty"}},
        {"AFlagThatIsNone",
            [](const ProjectCopy& copy) {
                copy.replace("project.json", "\"Ch1.M1_T_servo_2<.mM1_servopassiv_2>\": false",
                    "\"Ch1.M1_T_servo_2<.mM1_servopassiv_2>\": 1");
            },
            {"project.json:66: variable \"Ch1.M1_T_servo_2<.mM1_servopassiv_2>\" is neither true nor false: "
             "the servo "
             "is not shown"}},
        {"AServoToBeginWithThatThereIsNot",
            [](const ProjectCopy& copy) {
                copy.replace(
                    "project.json", "\"Ch-1.intern<.servo_zeiger>\": 0", "\"Ch-1.intern<.servo_zeiger>\": 3");
            },
            {"project.json:27: variable \"Ch-1.intern<.servo_zeiger>\" must be 0 for the menu or from 1 to "
             "2, the place "
             "of a servo: the panel begins with a servo that there is not"}},
        {"TextsInOtherLetters",
            [](const ProjectCopy& copy) {
                fs::rename(copy.place("Texts/de.txt"), copy.place("Texts/DE.txt"));
            },
            {"Texts/DE.txt: must be named de.txt, in these letters"}},
        {"RubbishForPictures",
            [](const ProjectCopy& copy) {
                spoilFile(copy, "Servo/Servo_M1_1_1280.gif");
                spoilFile(copy, "Servo/ServoMenu_1280.bmp");
            },
            {"Servo/Servo_M1_1_1280.gif: ", "Servo/ServoMenu_1280.bmp: "}},
        {"LoopForTheDescription", [](const ProjectCopy& copy) { replaceByLoop(copy, "project.json"); },
            {"project.json: its symbolic links lead in a circle"}},
        {"LoopForFolders",
            [](const ProjectCopy& copy) {
                replaceByLoop(copy, "Standard");
                replaceByLoop(copy, "Texts");
            },
            {"Standard: no such folder", "Texts/de.txt: "}},
        {"LoopIntoItself",
            [](const ProjectCopy& copy) { fs::create_directory_symlink("..", copy.place("Servo/project")); },
            {}},
        {"LoopsForFiles",
            [](const ProjectCopy& copy) {
                for (const char* const file : {"Texts/de.txt", "Parameter/Program.ini", "Servo/Servo.ini",
                         "Servo/Servo.mdb", "Servo/ServoMain_1280.bmp"})
                    replaceByLoop(copy, file);
            },
            {"Texts/de.txt: its symbolic links lead in a circle", "Parameter/Program.ini: its symbolic links",
                "Servo/Servo.ini: its symbolic links", "Servo/Servo.mdb: ", "Servo/ServoMain_1280.bmp: "}},
        {"FoldersForFiles",
            [](const ProjectCopy& copy) {
                for (const char* const file : {"Texts/de.txt", "Parameter/Program.ini", "Servo/Servo.ini",
                         "Servo/Servo.mdb", "Servo/ServoMain_1280.bmp"})
                    replaceByFolder(copy, file);
            },
            {"Texts/de.txt: it is a folder", "Parameter/Program.ini: it is a folder",
                "Servo/Servo.ini: it is a folder",
                "Servo/Servo.mdb: ", "Servo/ServoMain_1280.bmp: is no file"}},
        {"FilesForFolders",
            [](const ProjectCopy& copy) {
                for (const char* const folder : {"Servo", "Standard", "Texts", "Parameter"})
                    replaceByFile(copy, folder);
            },
            {"Servo: is no folder", "Standard: is no folder", "Servo/Servo.ini: no such file",
                "Servo/Servo.mdb: no such file", "Texts/de.txt: "}},
        {"PipesForFiles",
            [](const ProjectCopy& copy) {
                for (const char* const file :
                    {"Texts/de.txt", "Servo/Servo.ini", "Servo/Servo_M1_1.ini", "Servo/Servo.mdb"})
                    replaceByPipe(copy, file);
            },
            {"Texts/de.txt: it is no ordinary file", "Servo/Servo.ini: it is no ordinary file",
                "Servo/Servo_M1_1.ini: it is no ordinary file", "Servo/Servo.mdb: "}},
        {"PipesForPictures",
            [](const ProjectCopy& copy) {
                for (const char* const file :
                    {"Servo/ServoMain_1280.bmp", "Servo/Servo_M1_1_1280.gif", "Standard/OK.wmf"})
                    replaceByPipe(copy, file);
            },
            {"Servo/ServoMain_1280.bmp: is no file", "Servo/Servo_M1_1_1280.gif: is no file",
                "Standard/OK.wmf: is no file"}},
        {"LargeTexts",
            [](const ProjectCopy& copy) {
                copy.write("Texts/de.txt", large("a line of no meaning\n", 19'000'000));
            },
            {"Texts/de.txt:1: no \"=\"; a line is \"key = text\"; also in lines 2, 3, 4, 5, 6 and "}},
        {"TooLargeTexts",
            [](const ProjectCopy& copy) { copy.write("Texts/de.txt", large("a = b\n", 20'000'001)); },
            {"Texts/de.txt: the file is larger than 20 MB"}},
        {"LargeOptions",
            [](const ProjectCopy& copy) {
                copy.write("Parameter/Program.ini", large("[Project]\na=b\n", 1'500'000));
            },
            {"Parameter/Program.ini: has more than 1 MB"}},
    };
    return projects;
}

} // namespace servopanel::check::tests

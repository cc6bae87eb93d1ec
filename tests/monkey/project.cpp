#include "monkey/project.h"

#include "servo_page/felder.h"
#include "support/standard_project.h"

#include <sstream>

namespace servopanel::monkey {

namespace {

constexpr std::string_view database = "Servo\\Servo.mdb";

// Of each servo one input stays without a definition, and is hidden.
bool isHidden(int servo, int field) { return field == servo + 10; }

// Most inputs are free for the level that the standard project begins with.
int levelOf(int field)
{
    if (field % 7 == 0) return 5;
    return field % 5 == 0 ? 3 : 1;
}

std::string definitions()
{
    std::ostringstream rows;
    rows << "db " << database << " empty\n";
    for (const int servo : servos)
        for (std::int16_t field = 1; field <= servo_page::letztesFeld; ++field) {
            const auto family = servo_page::familieDesFelds(field);
            if (!family || isHidden(servo, field)) continue;
            rows << "db " << database << " M1 " << servoVariable(servo, family->name) << ' '
                 << family->element << " 0 1000 0 100 " << levelOf(field) << '\n';
        }
    return rows.str();
}

std::vector<ProjectFile> filesOf(const std::string& project)
{
    std::vector<ProjectFile> files{{std::string{database}, definitions(), false}};
    std::istringstream lines{project};
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words{line};
        std::string kind;
        std::string name;
        words >> kind >> name;
        if (kind != "file" && kind != "picture") continue;
        ProjectFile file{name, line + "\n", kind == "file"};
        if (file.isText) {
            for (std::string inside; inside != "end" && std::getline(lines, inside);)
                file.bringBack += inside + "\n";
        }
        files.push_back(std::move(file));
    }
    return files;
}

} // namespace

const std::string& monkeyProject()
{
    static const std::string project = testing::standardProject + "\n" + definitions();
    return project;
}

const std::vector<ProjectFile>& projectFiles()
{
    static const std::vector<ProjectFile> files = filesOf(testing::standardProject);
    return files;
}

std::string servoVariable(int servo, std::string_view family)
{
    const std::string number = std::to_string(servo);
    std::string name = "Ch1.M1_T_servo_";
    name.append(number).append("<.mM1").append(family).append(number).append(">");
    return name;
}

} // namespace servopanel::monkey

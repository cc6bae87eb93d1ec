#include "line_machine/project_definitions.h"

#include "jet/servo_defs/definition_list.h"

#include <system_error>

namespace servopanel::line_machine {

std::filesystem::path definitionsFile(const std::filesystem::path& project)
{
    return project / "Servo" / "Servo.mdb";
}

std::optional<std::vector<jet::DefinitionRow>> projectDefinitions(const std::filesystem::path& project)
{
    const std::filesystem::path file = definitionsFile(project);
    std::error_code code;
    // A link that leads nowhere is a mistake, not a project without definitions.
    if (std::filesystem::symlink_status(file, code).type() == std::filesystem::file_type::not_found)
        return std::nullopt;
    return jet::loadDefinitions(file).rows;
}

} // namespace servopanel::line_machine

#include "basic/error.h"
#include "params/commands.h"
#include "params/comparison.h"
#include "params/set_file.h"
#include "params/sources.h"
#include "portable/text_reading.h"
#include "portable/text_writing.h"

#include <system_error>

namespace servopanel::params {

namespace {

// Only what dump has written itself is given away for something new.
void requireReplaceable(const std::filesystem::path& file)
{
    std::error_code code;
    if (!std::filesystem::exists(file, code)) return;
    const portable::FileBytes content = portable::readFile(file, file.string());
    if (content.failure) throw *content.failure;
    if (!isParameterSet(content.bytes) && !content.bytes.empty())
        basic::raise(basic::ErrorNumber::InvalidProcedureCall,
            "'" + file.string() + "' is there, and is no parameter set; it stays");
}

} // namespace

Status dump(const CommandLine& line, const Surroundings& surroundings, ToolOutput& output)
{
    if (!line.output.empty()) requireReplaceable(line.output);
    const std::optional<Project> project = projectOf(line, output);
    const auto machines = line.broker ? connect(line, surroundings, {line.machine}) : nullptr;
    const Read read =
        readMachine(line.machine, line.servos, machines.get(), line, &*project, surroundings, output);
    if (!read.isWhole) {
        tell(output,
            "nothing is written: a part of the parameters would look like all of them; choose servos "
            "with --servo");
        return Status::Trouble;
    }
    if (!machines)
        tell(output, "no --broker: these are the start values of project.json, not what a machine holds");
    if (line.output.empty()) {
        output.text = toText(read.set);
        return Status::Equal;
    }
    portable::replaceFile(std::filesystem::absolute(line.output), toText(read.set), line.output.string());
    output.text = "'" + line.output.string() + "': machine " + line.machine + ", "
        + counted(servosOf(read.set).size(), "servo", "servos") + ", "
        + counted(read.set.rows.size(), "row", "rows") + "\n";
    return Status::Equal;
}

} // namespace servopanel::params

// project.json, the variables that it declares, and the lines that are named when something in it is wrong.
#include "check/json_lines.h"
#include "fuzz/fuzz.h"
#include "machine/project_file.h"
#include "machine/variable_store.h"

#include <algorithm>

namespace servopanel::fuzz {

void feed(std::string_view bytes)
{
    const machine::ProjectFile project = machine::ProjectFile::parse(bytes, "project.json");
    if (project.resolution != 800 && project.resolution != 1024 && project.resolution != 1280)
        broken("the resolution is one that the pages know");
    machine::VariableStore store;
    project.declareVariables(store);

    const check::JsonLines lines{bytes};
    const auto last = 1 + std::count(bytes.begin(), bytes.end(), '\n');
    for (const char* const path :
        {"", "/languages", "/languages/1/code", "/machines/0/variables/0", "/no/such/member"})
        if (lines.line(path) < 0 || lines.line(path) > last) broken("a member stands in a line of the file");
}

} // namespace servopanel::fuzz

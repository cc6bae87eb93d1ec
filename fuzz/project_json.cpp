// project.json, and the variables that it declares.
#include "fuzz/fuzz.h"
#include "machine/project_file.h"
#include "machine/variable_store.h"

namespace servopanel::fuzz {

void feed(std::string_view bytes)
{
    const machine::ProjectFile project = machine::ProjectFile::parse(bytes, "project.json");
    if (project.resolution != 800 && project.resolution != 1024 && project.resolution != 1280)
        broken("the resolution is one that the pages know");
    machine::VariableStore store;
    project.declareVariables(store);
}

} // namespace servopanel::fuzz

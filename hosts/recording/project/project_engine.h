#pragma once

#include "platform/db_engine.h"
#include "portable/path_mapping.h"

#include <memory>

namespace servopanel::recording {

// The engine for the definition databases of project folders.
std::shared_ptr<platform::DBEngine> makeProjectEngine(const portable::PathMapping& mapping);

} // namespace servopanel::recording

#pragma once

#include "platform/db_engine.h"
#include "platform/error_display.h"
#include "platform/files.h"
#include "platform/messages.h"
#include "platform/path_helper.h"
#include "platform/pictures.h"
#include "platform/process_var_access.h"
#include "platform/profile.h"
#include "platform/surroundings.h"

#include <memory>

namespace servopanel::platform {

// The parts of the surroundings that are made on first use. Where making one fails with basic::Error or gives nullptr,
// the statement fails, for nullptr with error 91, and the next use tries again; without an error display all is silent.
class LateObjects {
public:
    virtual ~LateObjects() = default;
    virtual std::shared_ptr<ProcessVarAccess> createProcessVarAccess() = 0;
    virtual std::shared_ptr<PathHelper> createPathHelper() = 0;
    virtual std::shared_ptr<ErrorDisplay> createErrorDisplay() = 0;
    virtual std::shared_ptr<DBEngine> createDBEngine() = 0;
};

// What the library is given at its creation. The host keeps all of it alive as long as the library.
struct LibraryPlatform {
    LateObjects& objects;
    Messages& messages;
    Profile& profile;
    Files& files;
    Surroundings& surroundings;
    Pictures& pictures;
};

} // namespace servopanel::platform

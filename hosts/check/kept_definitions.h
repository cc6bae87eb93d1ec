#pragma once

#include "jet/jet_engine.h"
#include "platform/db_engine.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace servopanel::check {

// The rows of the definitions, read once for all the pages of a check: the library reads all of them for each page.
class KeptDefinitions {
public:
    // The mapping lives as long as this.
    explicit KeptDefinitions(const portable::PathMapping& mapping)
        : engine_{mapping}
    {
    }

    // As the panel's engine opens it, and with its errors; nothing can be changed.
    std::unique_ptr<platform::Database> open(std::string_view path);

private:
    class Rows;
    class File;
    class Opened;
    struct Table;

    jet::JetEngine engine_;
    std::map<std::string, std::shared_ptr<File>, std::less<>> files_; // by path
};

} // namespace servopanel::check

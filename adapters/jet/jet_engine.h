#pragma once

#include "platform/db_engine.h"
#include "portable/path_mapping.h"

namespace servopanel::jet {

// The definition databases of a project: Jet 3 and Jet 4 files, encoded ones included. A database gives its definitions
// as one record set; only the six values of a row can be changed, and only rows that exist.
//
// Rows are read when the record set is opened. All updates between opening and closing a database become one change of
// its file at close; a database that is let go of without close changes nothing. The file may be read while another
// program has it open; it is then not written.
class JetEngine : public platform::DBEngine {
public:
    // The mapping lives as long as this.
    explicit JetEngine(const portable::PathMapping& mapping)
        : mapping_{mapping}
    {
    }

    std::unique_ptr<platform::Database> open(std::string_view path) override;

private:
    const portable::PathMapping& mapping_;
};

} // namespace servopanel::jet

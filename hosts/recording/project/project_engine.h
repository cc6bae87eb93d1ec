#pragma once

#include "platform/db_engine.h"
#include "recording/memory/failures.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace servopanel::recording {

// Columns that were changed, by row and name in upper case. The row is known by its bookmark.
using ChangedColumns = std::map<std::string, basic::Variant>;
using ChangedRows = std::map<std::string, ChangedColumns>;

// The databases of a project folder, which are only read: what is changed is kept in memory and found again when the
// file is opened anew.
class ProjectEngine : public platform::DBEngine {
public:
    ProjectEngine(std::shared_ptr<platform::DBEngine> inner, Failures& failures)
        : inner_{std::move(inner)}
        , failures_{failures}
    {
    }

    std::unique_ptr<platform::Database> open(std::string_view path) override;

private:
    std::shared_ptr<platform::DBEngine> inner_;
    Failures& failures_;
    std::map<std::string, std::shared_ptr<ChangedRows>> changed_; // by full path
};

} // namespace servopanel::recording

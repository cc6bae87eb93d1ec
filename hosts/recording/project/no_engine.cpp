#include "recording/memory/failures.h"
#include "recording/project/project_engine.h"

#include <cstdint>
#include <string>

namespace servopanel::recording {

namespace {

// In a build without access to the database format every database is one that cannot be opened.
class NoEngine : public platform::DBEngine {
public:
    std::unique_ptr<platform::Database> open(std::string_view path) override
    {
        constexpr std::int32_t unknownFormat = 3343;
        raiseError(unknownFormat, "This build cannot read databases: '" + std::string{path} + "'");
    }
};

} // namespace

std::shared_ptr<platform::DBEngine> makeProjectEngine(const portable::PathMapping&)
{
    return std::make_shared<NoEngine>();
}

} // namespace servopanel::recording

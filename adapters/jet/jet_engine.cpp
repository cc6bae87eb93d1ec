#include "jet/jet_engine.h"

#include "jet/definition_file.h"
#include "jet/definition_table.h"
#include "jet/names.h"
#include "jet/record_set.h"

#include <string>

namespace servopanel::jet {

namespace {

class JetDatabase : public platform::Database {
public:
    JetDatabase(std::string name, const std::filesystem::path& path)
        : open_{std::make_shared<OpenDatabase>(OpenDatabase{std::move(name), DefinitionFile{path}})}
    {
    }

    std::unique_ptr<platform::RecordSet> openRecordSet(std::string_view query) override
    {
        return open_->named([&]() -> std::unique_ptr<platform::RecordSet> {
            // The one query there is; what it selects does not depend on its spelling.
            if (basic::upperCase(query).find(basic::upperCase(definitionTableName)) == std::string::npos)
                raise(JetError::TableNotFound, "it has no table for '" + std::string{query} + "'");
            return std::make_unique<DefinitionRecordSet>(open_, open_->usable().readTable());
        });
    }

    void close() override
    {
        open_->named([&] {
            if (!open_->file) return;
            // Closed also when the change fails.
            DefinitionFile file = std::move(*open_->file);
            open_->file.reset();
            file.save();
        });
    }

private:
    std::shared_ptr<OpenDatabase> open_;
};

} // namespace

std::unique_ptr<platform::Database> JetEngine::open(std::string_view path)
{
    // A name that is refused is named in its error already.
    const std::filesystem::path file = mapping_.resolve(path);
    try {
        return std::make_unique<JetDatabase>(std::string{path}, file);
    } catch (const basic::Error& error) {
        throw named(error, path);
    }
}

} // namespace servopanel::jet

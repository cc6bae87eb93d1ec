#include "recording/memory/memory_project.h"

#include <utility>

namespace servopanel::recording {

namespace {

class MemoryEngine : public platform::DBEngine {
public:
    explicit MemoryEngine(MemoryDatabases& databases)
        : databases_{databases}
    {
    }
    std::unique_ptr<platform::Database> open(std::string_view path) override { return databases_.open(path); }

private:
    MemoryDatabases& databases_;
};

} // namespace

bool isAbsoluteName(std::string_view name)
{
    if (name.empty()) return false;
    return name.front() == '\\' || name.front() == '/' || (name.size() >= 2 && name[1] == ':');
}

std::string MemoryProject::fullName(std::string_view name) const
{
    return isAbsoluteName(name) ? std::string{name} : std::string{folder} + std::string{name};
}

std::shared_ptr<platform::DBEngine> MemoryProject::database()
{
    return std::make_shared<MemoryEngine>(databases_);
}

void MemoryProject::putText(std::string_view name, std::string_view text)
{
    disk_.putText(fullName(name), text);
}

void MemoryProject::putPicture(std::string_view name, PictureSize size)
{
    disk_.putPicture(fullName(name), size);
}

void MemoryProject::putDatabase(std::string_view name)
{
    disk_.putOther(fullName(name));
    databases_.create(fullName(name));
}

void MemoryProject::lose(std::string_view name)
{
    disk_.remove(fullName(name));
    databases_.remove(fullName(name));
}

void MemoryProject::putRow(std::string_view name, DefinitionRow row)
{
    disk_.putOther(fullName(name));
    databases_.addRow(fullName(name), std::move(row));
}

bool MemoryProject::removeRow(std::string_view name, std::string_view variable, const basic::Variant& element)
{
    return databases_.removeRow(fullName(name), variable, element);
}

} // namespace servopanel::recording

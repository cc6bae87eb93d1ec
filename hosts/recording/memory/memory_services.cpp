#include "recording/memory/memory_services.h"

#include "basic/conversions.h"
#include "platform/ids.h"
#include "recording/memory/memory_disk.h"

#include <cstddef>

namespace servopanel::recording {

namespace {

constexpr std::int32_t pathFileAccess = 75;
constexpr std::int32_t invalidPicture = 481;

class WorldVariables : public platform::ProcessVarAccess {
public:
    explicit WorldVariables(MemoryWorld& world)
        : world_{world}
    {
    }
    basic::Variant ReadValue(std::string_view name) override { return world_.variables.read(name); }
    void WriteValue(std::string_view name, const basic::Variant& value) override
    {
        world_.variables.write(name, value);
    }

private:
    MemoryWorld& world_;
};

class WorldPaths : public platform::PathHelper {
public:
    WorldPaths(MemoryWorld& world, MemoryServices& services)
        : world_{world}
        , services_{services}
    {
    }
    std::string path(std::string_view name) override { return services_.project().fullName(name); }
    void openScreen(std::int16_t) override { }
    std::int16_t inputPermission() override { return world_.inputPermission; }

private:
    MemoryWorld& world_;
    MemoryServices& services_;
};

class WorldErrorDisplay : public platform::ErrorDisplay {
public:
    explicit WorldErrorDisplay(MemoryWorld& world)
        : world_{world}
    {
    }
    void ErrMessage(std::int32_t, std::string_view, std::string_view, std::string_view text) override
    {
        world_.lastReport = text;
    }
    void CloseMe() override { }

private:
    MemoryWorld& world_;
};

// The project of the moment, also when it changes after the library has made its engine.
class WorldEngine : public platform::DBEngine {
public:
    explicit WorldEngine(MemoryServices& services)
        : services_{services}
    {
    }
    std::unique_ptr<platform::Database> open(std::string_view path) override
    {
        return services_.project().database()->open(path);
    }

private:
    MemoryServices& services_;
};

} // namespace

std::shared_ptr<platform::ProcessVarAccess> MemoryServices::createProcessVarAccess()
{
    return std::make_shared<WorldVariables>(world_);
}

std::shared_ptr<platform::PathHelper> MemoryServices::createPathHelper()
{
    return std::make_shared<WorldPaths>(world_, *this);
}

std::shared_ptr<platform::ErrorDisplay> MemoryServices::createErrorDisplay()
{
    return std::make_shared<WorldErrorDisplay>(world_);
}

std::shared_ptr<platform::DBEngine> MemoryServices::createDBEngine()
{
    return std::make_shared<WorldEngine>(*this);
}

std::optional<std::string> MemoryServices::text(
    std::string_view file, std::string_view section, std::string_view entry)
{
    return project_->profile().text(file, section, entry);
}

platform::TextFile MemoryServices::openText(std::string_view path)
{
    return project_->files().openText(path);
}

void MemoryServices::closeText() { project_->files().closeText(); }

void MemoryServices::writeText(std::string_view path, std::string_view text)
{
    project_->files().writeText(path, text);
}

bool MemoryServices::exists(std::string_view path) { return project_->files().exists(path); }

void MemoryServices::createFolder(std::string_view path)
{
    if (world_.failures.take(FailureKind::CreateFolder, normalisedPath(path)))
        raiseError(pathFileAccess, "Path/File access error: " + std::string{path});
    project_->files().createFolder(path);
}

platform::EnvironmentValue MemoryServices::environment(std::string_view name)
{
    constexpr std::size_t longest = 4095;
    using State = platform::EnvironmentValue::State;
    const auto value = world_.environment.find(name);
    if (value == world_.environment.end()) return {State::Missing, {}};
    if (value->second.size() > longest) return {State::TooLong, {}};
    return {State::Present, value->second};
}

basic::ObjectRef MemoryServices::load(std::string_view path)
{
    if (world_.failures.take(FailureKind::LoadPicture, normalisedPath(path)))
        raiseError(invalidPicture, "Invalid picture: " + std::string{path});
    const PictureSize size = project_->loadPicture(path);
    return std::make_shared<MemoryPicture>(std::string{path}, size);
}

void MemoryServices::save(platform::Control& box, std::string_view path)
{
    if (world_.failures.take(FailureKind::SavePicture, normalisedPath(path)))
        raiseError(pathFileAccess, "Path/File access error: " + std::string{path});
    const double width = basic::toDouble(box.get(platform::names::Width)) / world_.twipsPerPixelX;
    const double height = basic::toDouble(box.get(platform::names::Height)) / world_.twipsPerPixelY;
    project_->savePicture(path, {basic::roundToInt32(width), basic::roundToInt32(height)});
}

} // namespace servopanel::recording

#pragma once

#include "platform/library_platform.h"
#include "recording/memory/memory_world.h"
#include "recording/memory/project.h"

#include <functional>
#include <memory>
#include <utility>

namespace servopanel::recording {

// The services that the library gets, answered from the world and the project. The project may change between two
// calls. All of it outlives the library.
class MemoryServices : private platform::LateObjects,
                       private platform::Messages,
                       private platform::Profile,
                       private platform::Files,
                       private platform::Surroundings,
                       private platform::Pictures {
public:
    // pump: what happens when the library lets events run.
    MemoryServices(MemoryWorld& world, std::shared_ptr<Project> project, std::function<void()> pump)
        : world_{world}
        , project_{std::move(project)}
        , pump_{std::move(pump)}
    {
    }

    platform::LibraryPlatform platform() { return {*this, *this, *this, *this, *this, *this}; }
    void setProject(std::shared_ptr<Project> project) { project_ = std::move(project); }
    Project& project() { return *project_; }

private:
    std::shared_ptr<platform::ProcessVarAccess> createProcessVarAccess() override;
    std::shared_ptr<platform::PathHelper> createPathHelper() override;
    std::shared_ptr<platform::ErrorDisplay> createErrorDisplay() override;
    std::shared_ptr<platform::DBEngine> createDBEngine() override;

    void show(std::string_view) override { }

    std::optional<std::string> text(
        std::string_view file, std::string_view section, std::string_view entry) override;

    platform::TextFile openText(std::string_view path) override;
    void closeText() override;
    void writeText(std::string_view path, std::string_view text) override;
    bool exists(std::string_view path) override;
    void createFolder(std::string_view path) override;

    platform::EnvironmentValue environment(std::string_view name) override;
    std::string libraryName() override { return world_.libraryName; }
    float twipsPerPixelX() override { return world_.twipsPerPixelX; }
    float twipsPerPixelY() override { return world_.twipsPerPixelY; }
    void letEventsRun() override { pump_(); }

    basic::ObjectRef load(std::string_view path) override;
    void save(platform::Control& box, std::string_view path) override;

    MemoryWorld& world_;
    std::shared_ptr<Project> project_;
    std::function<void()> pump_;
};

} // namespace servopanel::recording

#pragma once

#include "machine/variable_store.h"
#include "panel/form/event_gate.h"
#include "panel/form/services.h"
#include "panel/pictures/picture_cache.h"
#include "panel/widgets/error_list.h"
#include "platform/library_platform.h"
#include "portable/path_mapping.h"
#include "portable/portable_surroundings.h"

#include <functional>
#include <memory>

namespace servopanel::panel {

// The services that the library is given, each over the panel's own means.

class PanelErrorDisplay : public platform::ErrorDisplay {
public:
    explicit PanelErrorDisplay(ErrorList& list)
        : list_{list}
    {
    }
    void ErrMessage(std::int32_t number, std::string_view source, std::string_view description,
        std::string_view text) override;
    void CloseMe() override;

private:
    ErrorList& list_;
};

// The operator has to read a message before anything goes on: the page's timer rests, and no procedure is entered.
class PanelMessages : public platform::Messages {
public:
    // stage: what a message covers.
    PanelMessages(QWidget& stage, EventGate& gate, PanelWords words)
        : stage_{stage}
        , gate_{gate}
        , words_{std::move(words)}
    {
    }
    void show(std::string_view text) override;

private:
    QWidget& stage_;
    EventGate& gate_;
    PanelWords words_;
};

class PanelPictures : public platform::Pictures {
public:
    PanelPictures(const portable::PathMapping& mapping, PictureCache& cache)
        : mapping_{mapping}
        , cache_{cache}
    {
    }
    basic::ObjectRef load(std::string_view path) override;
    void save(platform::Control& box, std::string_view path) override;

private:
    const portable::PathMapping& mapping_;
    PictureCache& cache_;
};

class PanelPathHelper : public platform::PathHelper {
public:
    PanelPathHelper(const portable::PathMapping& mapping, std::int16_t inputPermission,
        std::function<void(std::int16_t number)> openScreen)
        : mapping_{mapping}
        , inputPermission_{inputPermission}
        , openScreen_{std::move(openScreen)}
    {
    }
    std::string path(std::string_view name) override
    {
        asked_ = name;
        return mapping_.fullName(name);
    }
    // The name that was asked for last.
    const std::string& asked() const { return asked_; }
    void openScreen(std::int16_t number) override { openScreen_(number); }
    std::int16_t inputPermission() override { return inputPermission_; }

private:
    const portable::PathMapping& mapping_;
    std::int16_t inputPermission_;
    std::function<void(std::int16_t)> openScreen_;
    std::string asked_;
};

class PanelSurroundings : public portable::PortableSurroundings {
public:
    using PortableSurroundings::PortableSurroundings;
    void letEventsRun() override;
};

// Makes the engine of the definition database. Without an engine, pages have no definitions and show every item.
using MakeDatabase = std::function<std::shared_ptr<platform::DBEngine>()>;

class PanelObjects : public platform::LateObjects {
public:
    struct Parts {
        std::shared_ptr<platform::ProcessVarAccess> variables;
        std::shared_ptr<PanelPathHelper> paths;
        ErrorList& errors;
        MakeDatabase makeDatabase;
    };
    explicit PanelObjects(Parts parts)
        : parts_{std::move(parts)}
    {
    }
    std::shared_ptr<platform::ProcessVarAccess> createProcessVarAccess() override { return parts_.variables; }
    std::shared_ptr<platform::PathHelper> createPathHelper() override { return parts_.paths; }
    std::shared_ptr<platform::ErrorDisplay> createErrorDisplay() override;
    std::shared_ptr<platform::DBEngine> createDBEngine() override;

private:
    Parts parts_;
};

} // namespace servopanel::panel

#pragma once

#include "platform/library_platform.h"
#include "recording/trace/path_names.h"
#include "recording/trace/trace_sink.h"

#include <memory>

namespace servopanel::recording {

// One decorator for each service of the library's surroundings.

class RecordedVariables : public platform::ProcessVarAccess {
public:
    RecordedVariables(
        std::shared_ptr<platform::ProcessVarAccess> inner, const PathNames& paths, TraceSink& sink)
        : inner_{std::move(inner)}
        , paths_{paths}
        , sink_{sink}
    {
    }
    basic::Variant ReadValue(std::string_view name) override;
    void WriteValue(std::string_view name, const basic::Variant& value) override;

private:
    std::shared_ptr<platform::ProcessVarAccess> inner_;
    const PathNames& paths_;
    TraceSink& sink_;
};

class RecordedPathHelper : public platform::PathHelper {
public:
    RecordedPathHelper(std::shared_ptr<platform::PathHelper> inner, PathNames& paths, TraceSink& sink)
        : inner_{std::move(inner)}
        , paths_{paths}
        , sink_{sink}
    {
    }
    std::string path(std::string_view name) override;
    void openScreen(std::int16_t number) override;
    std::int16_t inputPermission() override { return inner_->inputPermission(); }

private:
    std::shared_ptr<platform::PathHelper> inner_;
    PathNames& paths_;
    TraceSink& sink_;
};

class RecordedErrorDisplay : public platform::ErrorDisplay {
public:
    RecordedErrorDisplay(
        std::shared_ptr<platform::ErrorDisplay> inner, const PathNames& paths, TraceSink& sink)
        : inner_{std::move(inner)}
        , paths_{paths}
        , sink_{sink}
    {
    }
    void ErrMessage(std::int32_t number, std::string_view source, std::string_view description,
        std::string_view text) override;
    void CloseMe() override;

private:
    std::shared_ptr<platform::ErrorDisplay> inner_;
    const PathNames& paths_;
    TraceSink& sink_;
};

class RecordedMessages : public platform::Messages {
public:
    RecordedMessages(platform::Messages& inner, const PathNames& paths, TraceSink& sink)
        : inner_{inner}
        , paths_{paths}
        , sink_{sink}
    {
    }
    void show(std::string_view text) override;

private:
    platform::Messages& inner_;
    const PathNames& paths_;
    TraceSink& sink_;
};

class RecordedProfile : public platform::Profile {
public:
    RecordedProfile(platform::Profile& inner, const PathNames& paths, TraceSink& sink)
        : inner_{inner}
        , paths_{paths}
        , sink_{sink}
    {
    }
    std::optional<std::string> text(
        std::string_view file, std::string_view section, std::string_view entry) override;

private:
    platform::Profile& inner_;
    const PathNames& paths_;
    TraceSink& sink_;
};

class RecordedFiles : public platform::Files {
public:
    RecordedFiles(platform::Files& inner, const PathNames& paths, TraceSink& sink)
        : inner_{inner}
        , paths_{paths}
        , sink_{sink}
    {
    }
    platform::TextFile openText(std::string_view path) override;
    void closeText() override;
    void writeText(std::string_view path, std::string_view text) override;
    bool exists(std::string_view path) override;
    void createFolder(std::string_view path) override;

private:
    platform::Files& inner_;
    const PathNames& paths_;
    TraceSink& sink_;
};

class RecordedPictures : public platform::Pictures {
public:
    RecordedPictures(platform::Pictures& inner, const PathNames& paths, TraceSink& sink)
        : inner_{inner}
        , paths_{paths}
        , sink_{sink}
    {
    }
    basic::ObjectRef load(std::string_view path) override;
    void save(platform::Control& box, std::string_view path) override;

private:
    platform::Pictures& inner_;
    const PathNames& paths_;
    TraceSink& sink_;
};

class RecordedSurroundings : public platform::Surroundings {
public:
    RecordedSurroundings(platform::Surroundings& inner, TraceSink& sink)
        : inner_{inner}
        , sink_{sink}
    {
    }
    platform::EnvironmentValue environment(std::string_view name) override
    {
        return inner_.environment(name);
    }
    std::string libraryName() override { return inner_.libraryName(); }
    float twipsPerPixelX() override { return inner_.twipsPerPixelX(); }
    float twipsPerPixelY() override { return inner_.twipsPerPixelY(); }
    void letEventsRun() override;

private:
    platform::Surroundings& inner_;
    TraceSink& sink_;
};

} // namespace servopanel::recording

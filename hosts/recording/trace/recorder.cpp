#include "recording/trace/recorder.h"

#include "recording/trace/recorded_database.h"

namespace servopanel::recording {

Recorder::Recorder(const platform::LibraryPlatform& inner, TraceSink& sink)
    : inner_{inner}
    , sink_{sink}
    , messages_{inner.messages, paths_, sink}
    , profile_{inner.profile, paths_, sink}
    , files_{inner.files, paths_, sink}
    , surroundings_{inner.surroundings, sink}
    , pictures_{inner.pictures, paths_, sink}
{
}

platform::LibraryPlatform Recorder::platform()
{
    return {*this, messages_, profile_, files_, surroundings_, pictures_};
}

std::unique_ptr<RecordedControl> Recorder::control(
    std::string_view className, const platform::ControlPlatform& inner)
{
    return std::make_unique<RecordedControl>(className, inner, paths_, sink_);
}

std::shared_ptr<platform::ProcessVarAccess> Recorder::createProcessVarAccess()
{
    return std::make_shared<RecordedVariables>(inner_.objects.createProcessVarAccess(), paths_, sink_);
}

std::shared_ptr<platform::PathHelper> Recorder::createPathHelper()
{
    return std::make_shared<RecordedPathHelper>(inner_.objects.createPathHelper(), paths_, sink_);
}

std::shared_ptr<platform::ErrorDisplay> Recorder::createErrorDisplay()
{
    return std::make_shared<RecordedErrorDisplay>(inner_.objects.createErrorDisplay(), paths_, sink_);
}

std::shared_ptr<platform::DBEngine> Recorder::createDBEngine()
{
    return std::make_shared<RecordedDBEngine>(inner_.objects.createDBEngine(), paths_, sink_);
}

} // namespace servopanel::recording

#pragma once

#include "platform/control_platform.h"
#include "platform/library_platform.h"
#include "recording/trace/path_names.h"
#include "recording/trace/recorded_form.h"
#include "recording/trace/recorded_services.h"
#include "recording/trace/trace_sink.h"

#include <memory>
#include <string_view>

namespace servopanel::recording {

// The platform of one control with everything that crosses it written to the trace. It lives as long as the control.
class RecordedControl {
public:
    RecordedControl(std::string_view className, const platform::ControlPlatform& inner,
        const PathNames& paths, TraceSink& sink)
        : form_{inner.form, className, paths, sink}
        , surface_{inner.surface, className, paths, sink}
        , owner_{inner.owner, className, paths, sink}
    {
    }

    platform::ControlPlatform platform() { return {form_, surface_, owner_}; }

private:
    RecordedForm form_;
    RecordedSurface surface_;
    RecordedOwner owner_;
};

// Records what crosses the seam between the library and any host: the host hands its platform to a recorder and gives
// the recorder's platform to the library. Sink, inner platforms and recorder outlive the library.
class Recorder : private platform::LateObjects {
public:
    Recorder(const platform::LibraryPlatform& inner, TraceSink& sink);
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;
    ~Recorder() override = default;

    platform::LibraryPlatform platform();

    // For one control of the library; className is its name in the trace ("Servo", "ServoMain", "ServoMenu").
    std::unique_ptr<RecordedControl> control(
        std::string_view className, const platform::ControlPlatform& inner);

    const PathNames& paths() const { return paths_; }

private:
    std::shared_ptr<platform::ProcessVarAccess> createProcessVarAccess() override;
    std::shared_ptr<platform::PathHelper> createPathHelper() override;
    std::shared_ptr<platform::ErrorDisplay> createErrorDisplay() override;
    std::shared_ptr<platform::DBEngine> createDBEngine() override;

    platform::LibraryPlatform inner_;
    TraceSink& sink_;
    PathNames paths_;
    RecordedMessages messages_;
    RecordedProfile profile_;
    RecordedFiles files_;
    RecordedSurroundings surroundings_;
    RecordedPictures pictures_;
};

} // namespace servopanel::recording

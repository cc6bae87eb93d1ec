#pragma once

#include "platform/control_platform.h"
#include "recording/trace/path_names.h"
#include "recording/trace/trace_sink.h"

#include <string>
#include <string_view>

namespace servopanel::recording {

// The children of one control.
class RecordedForm : public platform::Form {
public:
    RecordedForm(platform::Form& inner, std::string_view owner, const PathNames& paths, TraceSink& sink)
        : inner_{inner}
        , owner_{owner}
        , paths_{paths}
        , sink_{sink}
    {
    }

    platform::ControlRef child(platform::ChildId id) override;
    void load(platform::ChildId id) override;
    float textWidth(platform::ChildId id, std::string_view text) override;

private:
    platform::Form& inner_;
    std::string owner_;
    const PathNames& paths_;
    TraceSink& sink_;
};

// What one control draws, and its own size and picture.
class RecordedSurface : public platform::Surface {
public:
    RecordedSurface(platform::Surface& inner, std::string_view owner, const PathNames& paths, TraceSink& sink)
        : inner_{inner}
        , owner_{owner}
        , paths_{paths}
        , sink_{sink}
    {
    }

    basic::Variant get(const platform::Member& member) override;
    void put(const platform::Member& member, const basic::Variant& value) override;
    void line(platform::ChildId target, float x1, float y1, float x2, float y2, std::int32_t colour,
        std::int16_t flags) override;
    void clear(platform::ChildId target) override;
    void refresh(platform::ChildId target) override;
    void bitBlt(platform::ChildId from, platform::ChildId to, std::int32_t x, std::int32_t y,
        std::int32_t width, std::int32_t height) override;
    void stretchBlt(platform::ChildId from, platform::ChildId to, std::int32_t fromWidth,
        std::int32_t fromHeight, std::int32_t width, std::int32_t height) override;

private:
    platform::Surface& inner_;
    std::string owner_;
    const PathNames& paths_;
    TraceSink& sink_;
};

// The events that one control raises.
class RecordedOwner : public platform::Owner {
public:
    RecordedOwner(platform::Owner& inner, std::string_view owner, const PathNames& paths, TraceSink& sink)
        : inner_{inner}
        , owner_{owner}
        , paths_{paths}
        , sink_{sink}
    {
    }

    void raise(std::string_view event, platform::Args args) override;

private:
    platform::Owner& inner_;
    std::string owner_;
    const PathNames& paths_;
    TraceSink& sink_;
};

} // namespace servopanel::recording

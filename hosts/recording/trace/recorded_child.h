#pragma once

#include "platform/control.h"
#include "recording/trace/path_names.h"
#include "recording/trace/trace_sink.h"
#include "recording/trace/value_text.h"

#include <string>
#include <string_view>

namespace servopanel::recording {

// A child control whose puts and calls are written to the trace. Reads are passed on without a line.
class RecordedChild : public platform::Control, public TracedObject {
public:
    RecordedChild(platform::ControlRef inner, std::string name, const PathNames& paths, TraceSink& sink)
        : inner_{std::move(inner)}
        , name_{std::move(name)}
        , paths_{paths}
        , sink_{sink}
    {
    }

    using platform::Control::get;
    using platform::Control::put;
    basic::Variant get(const platform::Member& member, platform::Args args) override;
    void put(const platform::Member& member, platform::Args args, const basic::Variant& value) override;
    void putRef(const platform::Member& member, platform::Args args, const basic::Variant& object) override;
    basic::Variant call(const platform::Member& member, platform::Args args) override;
    std::string_view className() const override { return inner_->className(); }

    const std::string& traceName() const override { return name_; }
    const platform::ControlRef& inner() const { return inner_; }

private:
    std::string putText(
        const platform::Member& member, platform::Args args, const basic::Variant& value) const;
    basic::Variant recordedCall(
        const platform::Member& member, platform::Args args, std::string line, std::string_view arrow);

    platform::ControlRef inner_;
    std::string name_;
    const PathNames& paths_;
    TraceSink& sink_;
};

// The host's own control behind a recorded one, any other value as it is.
basic::Variant unwrapped(const basic::Variant& value);
platform::Control& unwrapped(platform::Control& control);

} // namespace servopanel::recording

#pragma once

#include "recording/memory/memory_host.h"
#include "recording/scenario/line_reader.h"
#include "recording/scenario/scenario.h"
#include "recording/trace/recorder.h"
#include "recording/trace/trace_sink.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::recording {

// The operator and the host's side of a replay: what the commands of a scenario do. What cannot be played, such as
// showing a control that does not exist, raises Malformed.
class Player {
public:
    // makeControl: makes the library's controls with everything recorded.
    Player(MemoryHost& host, ControlMaker makeControl, TraceSink& sink, const PathNames& paths)
        : host_{host}
        , makeControl_{std::move(makeControl)}
        , sink_{sink}
        , paths_{paths}
    {
    }

    // Raises ScenarioError when the step cannot be played.
    void play(const Step& step);

    MemoryHost& host() { return host_; }
    MemoryWorld& world() { return host_.world(); }

    // A folder of this system, from the current folder on when it is relative.
    void useProjectFolder(const std::string& folder);

    void create();
    void show();
    void terminate();

    void touch(std::string_view control, std::int16_t index);
    void acceptMask(const basic::Variant& value);
    void cancelMask();
    void confirmEditor(double low, double high, std::int16_t pass);
    void cancelEditor();
    // owner: "ServoMain" or "ServoMenu".
    void key(std::string_view owner, std::int16_t number, bool evenWhenOff);
    void scroll(std::string_view owner, std::int16_t position);
    // On the menu's surface (no control) or one of its children, twips.
    void pointer(std::string_view control, std::int16_t index, std::string_view event, float x, float y);
    void timer();
    void language(std::int16_t number);
    void pokeModified(std::int16_t number);

    void tellState(const std::string& what);
    void tellVariables();

    void atNextPump(const Step& step) { atPump_.push_back(step); }
    // The library lets events run: the commands that wait for it are played.
    void pump();

private:
    void perform(const Step& step);
    ControlInstance& servo();
    // "ServoMain" or "ServoMenu"; nullptr when there is no control.
    ControlInstance* part(std::string_view className);
    ControlInstance& requirePart(std::string_view className);
    // A child of the page when the page exists.
    std::shared_ptr<MemoryControl> pageChild(std::string_view name, std::int16_t index);
    std::shared_ptr<MemoryControl> openInput(std::string_view name, const platform::Member& open);
    void reportFromPage(std::string_view control, std::string_view event);
    std::optional<basic::Variant> state(const std::string& what);

    MemoryHost& host_;
    ControlMaker makeControl_;
    TraceSink& sink_;
    const PathNames& paths_;
    std::vector<Step> atPump_;
    std::optional<ScenarioError> problemAtPump_;
};

} // namespace servopanel::recording

#pragma once

#include "platform/library_platform.h"
#include "recording/memory/memory_host.h"
#include "recording/scenario/player.h"
#include "recording/scenario/scenario.h"
#include "recording/trace/recorder.h"
#include "recording/trace/trace_sink.h"

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::recording {

// Makes a library on a platform and gives what makes its controls. The library lives as long as that does.
using LibraryMaker = std::function<ControlMaker(const platform::LibraryPlatform& platform)>;

// The library of src/shell.
ControlMaker makeLibrary(const platform::LibraryPlatform& platform);

// Plays scenarios on the library in memory and gives their traces. Several runs continue in the same state.
class Replay {
public:
    explicit Replay(const LibraryMaker& maker = makeLibrary, TraceSink::Write write = {});
    Replay(const Replay&) = delete;
    Replay& operator=(const Replay&) = delete;
    // The controls go before the library and what they were given.
    ~Replay() { host_.discardControls(); }

    // Plays the commands and returns the trace of just these. Raises ScenarioError when they cannot be played; what
    // was played before stays.
    std::string run(std::string_view scenario);
    void play(const std::vector<Step>& steps);

    // The lines of the last run that begin with one of these texts.
    std::string lines(std::initializer_list<std::string_view> beginnings) const;
    std::string lines(std::string_view beginning) const { return lines({beginning}); }

    MemoryHost& host() { return host_; }
    Player& player() { return player_; }

private:
    std::unique_ptr<platform::HostedControl> makeRecorded(
        std::string_view className, const platform::ControlPlatform& platform);

    std::string trace_;
    TraceSink::Write write_;
    TraceSink sink_;
    MemoryHost host_;
    Recorder recorder_;
    std::vector<std::unique_ptr<RecordedControl>> recorded_;
    ControlMaker library_;
    Player player_;
};

} // namespace servopanel::recording

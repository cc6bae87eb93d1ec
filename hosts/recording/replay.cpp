#include "recording/replay.h"

#include <utility>

namespace servopanel::recording {

Replay::Replay(const LibraryMaker& maker, TraceSink::Write write)
    : write_{std::move(write)}
    , sink_{[this](std::string_view lines) {
        trace_ += lines;
        if (write_) write_(lines);
    }}
    , host_{[this] { player_.pump(); }}
    , recorder_{host_.platform(), sink_}
    , library_{maker(recorder_.platform())}
    , player_{host_,
          [this](std::string_view className, const platform::ControlPlatform& platform) {
              return makeRecorded(className, platform);
          },
          sink_, recorder_.paths()}
{
}

std::unique_ptr<platform::HostedControl> Replay::makeRecorded(
    std::string_view className, const platform::ControlPlatform& platform)
{
    recorded_.push_back(recorder_.control(className, platform));
    return library_(className, recorded_.back()->platform());
}

std::string Replay::run(std::string_view scenario)
{
    trace_.clear();
    play(parseScenario(scenario));
    return trace_;
}

void Replay::play(const std::vector<Step>& steps)
{
    for (const Step& step : steps) {
        player_.play(step);
        // The controls that have ended are destroyed by now.
        if (host_.servo() == nullptr) recorded_.clear();
    }
}

std::string Replay::lines(std::initializer_list<std::string_view> beginnings) const
{
    std::string found;
    std::string_view rest = trace_;
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find('\n') + 1);
        rest.remove_prefix(line.size());
        for (const std::string_view beginning : beginnings) {
            if (line.substr(0, beginning.size()) != beginning) continue;
            found += line;
            break;
        }
    }
    return found;
}

} // namespace servopanel::recording

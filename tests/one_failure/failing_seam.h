#pragma once

#include "basic/error.h"
#include "recording/replay.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace servopanel::testing {

// Counts what crosses the seam from the library to its host, reads of properties and look-ups of children too, and lets
// one crossing fail.
class Crossings {
public:
    static constexpr std::int32_t errorNumber = 1000;

    // What crosses from now on is counted from 0 on and named; nothing fails.
    void listen();
    // Counted again, but this one fails.
    void failAt(std::size_t crossing);

    // What was counted, named as in a trace where it leaves a line there: "put ServoMain.Timer.Enabled".
    const std::vector<std::string>& names() const { return names_; }

    // To be called for each crossing before it reaches the host. name: makes the crossing's name.
    template <class Name>
    void cross(const Name& name)
    {
        if (mode_ == Mode::Idle) return;
        if (mode_ == Mode::Listening) names_.push_back(name());
        if (mode_ == Mode::Failing && count_++ == failing_)
            throw basic::Error{errorNumber, "the test", "fails once"};
    }

private:
    enum class Mode { Idle, Listening, Failing };

    Mode mode_ = Mode::Idle;
    std::size_t count_ = 0;
    std::size_t failing_ = 0;
    std::vector<std::string> names_;
};

// The library on a platform of which everything passes by these crossings. What fails here does not reach the recorder
// behind it and leaves no line in the trace.
recording::LibraryMaker libraryBehind(std::shared_ptr<Crossings> crossings);

} // namespace servopanel::testing

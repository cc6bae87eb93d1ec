#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <string_view>

namespace servopanel::recording {

// Collects the trace and hands it on in order. The line of an access stands before everything that the access causes,
// but its result is known only afterwards; such a line is opened first, and what comes behind it waits until it is
// complete. Used from one thread.
class TraceSink {
public:
    // Takes one or more whole lines, each with its line feed. Called as soon as they can be told.
    using Write = std::function<void(std::string_view lines)>;

    explicit TraceSink(Write write)
        : write_{std::move(write)}
    {
    }

    // text: without line feed.
    void line(std::string text);

    // The place of a line that is completed later.
    class Slot {
    public:
        Slot(TraceSink& sink, std::string unfinished);
        Slot(const Slot&) = delete;
        Slot& operator=(const Slot&) = delete;
        // Leaves the unfinished text in its place when nothing completed it, as after an exception.
        ~Slot();
        void complete(std::string text);

    private:
        TraceSink& sink_;
        std::size_t number_;
    };

    // unfinished: what the line says when the access fails.
    [[nodiscard]] Slot open(std::string unfinished) { return Slot{*this, std::move(unfinished)}; }

private:
    struct Line {
        std::string text;
        bool isOpen;
    };

    Line& at(std::size_t number) { return waiting_[number - handedOn_]; }
    void handOn();

    Write write_;
    std::deque<Line> waiting_;
    std::size_t handedOn_ = 0; // lines so far, and so the number of the first that waits
};

} // namespace servopanel::recording

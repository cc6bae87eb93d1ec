#include "recording/trace/trace_sink.h"

#include <utility>

namespace servopanel::recording {

void TraceSink::line(std::string text)
{
    waiting_.push_back({std::move(text), false});
    handOn();
}

void TraceSink::handOn()
{
    std::string ready;
    while (!waiting_.empty() && !waiting_.front().isOpen) {
        ready += waiting_.front().text;
        ready += '\n';
        waiting_.pop_front();
        ++handedOn_;
    }
    if (!ready.empty()) write_(ready);
}

TraceSink::Slot::Slot(TraceSink& sink, std::string unfinished)
    : sink_{sink}
    , number_{sink.handedOn_ + sink.waiting_.size()}
{
    sink_.waiting_.push_back({std::move(unfinished), true});
}

void TraceSink::Slot::complete(std::string text) { sink_.at(number_).text = std::move(text); }

TraceSink::Slot::~Slot()
{
    sink_.at(number_).isOpen = false;
    sink_.handOn();
}

} // namespace servopanel::recording

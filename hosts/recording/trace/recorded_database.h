#pragma once

#include "platform/db_engine.h"
#include "recording/trace/path_names.h"
#include "recording/trace/trace_sink.h"

#include <memory>

namespace servopanel::recording {

// The definition database. A row is told when its bookmark is read, which is when the library takes it.
class RecordedDBEngine : public platform::DBEngine {
public:
    RecordedDBEngine(std::shared_ptr<platform::DBEngine> inner, const PathNames& paths, TraceSink& sink)
        : inner_{std::move(inner)}
        , paths_{paths}
        , sink_{sink}
    {
    }
    std::unique_ptr<platform::Database> open(std::string_view path) override;

private:
    std::shared_ptr<platform::DBEngine> inner_;
    const PathNames& paths_;
    TraceSink& sink_;
};

} // namespace servopanel::recording

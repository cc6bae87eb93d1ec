#pragma once

#include "basic/error.h"
#include "basic/function_ref.h"
#include "basic/silent_sink.h"

#include <optional>
#include <string_view>

namespace servopanel::basic {

// Runs the statements of one procedure so that a failure costs just the statement that failed: the error is reported
// under the procedure's own name and the next statement runs. One lambda holds exactly one statement, and each round
// of a loop is a statement of its own; whatever else stood in the lambda would be lost with it.
class StatementTrap {
public:
    // procedure: the name under which the procedure reports, a text that outlives the trap.
    StatementTrap(ErrorSink& sink, std::string_view procedure)
        : sink_{sink}
        , procedure_{procedure}
    {
    }
    // Nobody is told, so no name is needed.
    explicit StatementTrap(SilentSink& sink)
        : sink_{sink}
    {
    }

    template <class F>
    void operator()(F statement)
    {
        run(FunctionRef<void()>{statement});
    }

    // A condition that fails counts as not met: what depends on it is not done.
    template <class F>
    bool condition(F test)
    {
        bool met = false;
        (*this)([&] { met = test(); });
        return met;
    }

    // A condition with an "else": nothing when it fails, so that neither branch is done.
    template <class F>
    std::optional<bool> decision(F test)
    {
        std::optional<bool> met;
        (*this)([&] { met = test(); });
        return met;
    }

private:
    void run(FunctionRef<void()> statement);

    ErrorSink& sink_;
    std::string_view procedure_;
};

} // namespace servopanel::basic

#pragma once

#include "jet/jet_error.h"

#include <string>

namespace servopanel::jet {

// Puts the name of a file into the errors of an action.
template <class F>
auto atFile(const std::string& file, F action)
{
    try {
        return action();
    } catch (const basic::Error& error) {
        throw named(error, file);
    }
}

// Puts a place within a file into the errors of an action: "line 12", "row 11".
template <class F>
auto atPlace(const std::string& place, F action)
{
    try {
        return action();
    } catch (const basic::Error& error) {
        throw basic::Error{error.number, error.source, place + ": " + error.description};
    }
}

} // namespace servopanel::jet

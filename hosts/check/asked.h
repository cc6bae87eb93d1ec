#pragma once

#include "jet/servo_defs/configured_servos.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace servopanel::check {

// Where a picture was asked for.
struct Places {
    std::set<int> resolutions;
    std::vector<std::string>
        views; // "the page of servo 5 of machine M1", in the order in which they were shown
    int width = 0; // pixels of the place that a picture must fill; 0: any size will do
    int height = 0;
    bool isFooter = false; // of a footer key, which scales a picture of the design's size

    void add(int resolution, const std::string& view)
    {
        resolutions.insert(resolution);
        if (std::find(views.begin(), views.end(), view) == views.end()) views.push_back(view);
    }
};

// A language text that an operator sees.
struct ShownText {
    bool isNeeded = false; // an empty text leaves an input or a key without its name
    bool isOfItem = false; // which is shown as far as it is defined
    std::vector<std::string> views;
};

// An entry that was looked up: file, section and entry, the latter two in capitals.
using IniPlace = std::tuple<std::string, std::string, std::string>;
struct AskedEntry {
    std::string name; // "[1Machine] Servo3"
    std::string view; // that asked for it first
};

// A report of the library.
struct LibraryError {
    std::string procedure;
    std::string description;
    std::string view; // where it was met
    friend bool operator==(const LibraryError&, const LibraryError&) = default;
};
// One about a picture or the definitions.
struct FileError {
    std::string description;
    std::string view;
};

// What the library asked for while somebody went through the whole project.
struct Asked {
    std::map<std::string, Places> pictures; // by name below the project's folder, with slashes
    std::map<std::string, Places> soughtFiles; // that are taken if they are there; likewise
    std::map<IniPlace, AskedEntry> entries;
    std::map<std::string, ShownText> texts; // by key
    std::set<std::string> textKeys; // all that were asked for, shown or not
    std::set<std::string> variableNames; // all that were asked for, there or not
    std::map<std::int16_t, std::string> screens; // other screens, and where their key is
    std::set<std::string> troubled; // variables that are among the findings
    std::vector<jet::ServoName> servos;
    std::set<jet::ServoName> unshownServos; // that are listed and that nobody comes to
    std::size_t wholeServos = 0; // those of which nothing failed that was asked for
    std::size_t machines = 0;
    std::set<std::string> openMachines; // of whose items none is defined, so that all of them are shown
    std::set<std::int16_t> skippedMachines; // that nobody went through, because of their designation
    std::vector<std::string> machinesWithoutServos; // designations of those of which the panel finds none
    std::vector<LibraryError> errors; // reports of the library that nothing else explains
    std::map<std::string, FileError> fileErrors; // by file; the first of each
    std::set<std::string> brokenFiles; // pictures and definitions that were found to be so

    // Whether everything was gone through that the project lists, so that what nobody asked for is superfluous.
    bool isWhole() const
    {
        return machinesWithoutServos.empty() && skippedMachines.empty() && unshownServos.empty();
    }
};

} // namespace servopanel::check

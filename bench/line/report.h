#pragma once

#include "big_line.h"
#include "running_line.h"

#include <string>
#include <vector>

namespace servopanel::bench {

struct Findings {
    LineSize size;
    double seconds = 0; // over which each share was taken
    double machinesUp = 0; // seconds until the last machine was live
    std::vector<double> panelStarts; // seconds, each until the page had its values
    RunningLine::Memories memories;
    double valuesOfAll = 0; // messages in a second
    double valuesOfOne = 0; // when the shown machine is alone
    std::vector<RunningLine::Shares> all; // one after the other, with all machines on the broker
    std::vector<RunningLine::Shares> alone; // with the shown machine alone
    double followingAll = 0; // percent of a processor, of somebody who follows all machines
    std::vector<double> writes; // milliseconds until the answer
    std::vector<double> echoes; // milliseconds to the broker and back
};

// As JSON.
std::string report(const Findings& findings);

} // namespace servopanel::bench

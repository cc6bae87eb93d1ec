#include "check/screen_check.h"

#include "basic/conversions.h"
#include "machine/screen_rows.h"

#include <cmath>

namespace servopanel::check {

namespace {

std::string inTenths(double value) { return basic::decimal(std::round(value * 10) / 10); }

} // namespace

void checkScreenSize(const CheckedProject& project, Findings& findings)
{
    const std::optional<double>& inches = project.file.diagonalInches;
    const int resolution = project.file.resolution;
    if (!inches || *inches >= machine::leastDiagonal(resolution)) return;
    std::string what{"screen: on "};
    what.append(inTenths(*inches)).append(" inches with ").append(std::to_string(resolution));
    what.append(" pixels of width the rows of the pages are only ");
    what.append(inTenths(machine::rowMillimetres(resolution, *inches)));
    what.append(" mm high: a finger may meet the row beside; from ");
    what.append(inTenths(machine::leastDiagonal(resolution))).append(" inches on they have 9 mm");
    findings.add("project.json", project.lines.line("/screen/diagonal_inches"), what);
}

} // namespace servopanel::check

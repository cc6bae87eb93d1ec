#include "figures.h"

#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iomanip>
#include <sstream>

namespace servopanel::bench {

namespace {

constexpr double firstLimit = 0.25;
constexpr double widestBar = 50; // characters

std::string processorName()
{
    std::ifstream file{"/proc/cpuinfo"};
    for (std::string line; std::getline(file, line);)
        if (line.starts_with("model name")) return line.substr(line.find(':') + 2);
    return "unknown processor";
}

} // namespace

std::string decimal(double value, int decimals)
{
    std::ostringstream out;
    out << std::fixed << std::setprecision(decimals) << value;
    return out.str();
}

double percentile(std::vector<double> values, double share)
{
    std::sort(values.begin(), values.end());
    const auto place = static_cast<std::size_t>(std::ceil(share * static_cast<double>(values.size())));
    return values[std::clamp<std::size_t>(place, 1, values.size()) - 1];
}

std::string histogram(const std::vector<double>& values, const std::string& unit)
{
    std::vector<std::size_t> counts;
    for (const double value : values) {
        std::size_t row = 0;
        for (double limit = firstLimit; value >= limit; limit *= 2)
            ++row;
        if (counts.size() <= row) counts.resize(row + 1);
        ++counts[row];
    }
    const auto most = static_cast<double>(*std::max_element(counts.begin(), counts.end()));
    std::ostringstream out;
    double limit = firstLimit;
    for (const std::size_t count : counts) {
        const double bar = std::ceil(static_cast<double>(count) / most * widestBar);
        out << "below " << std::setw(8) << decimal(limit, 2) << ' ' << unit << std::setw(7) << count
            << (count > 0 ? " " : "") << std::string(static_cast<std::size_t>(bar), '#') << '\n';
        limit *= 2;
    }
    return out.str();
}

std::string describeComputer()
{
    utsname kernel{};
    ::uname(&kernel);
    const double bytes =
        static_cast<double>(::sysconf(_SC_PHYS_PAGES)) * static_cast<double>(::sysconf(_SC_PAGESIZE));
    std::string text = processorName();
    text.append(", ").append(std::to_string(::sysconf(_SC_NPROCESSORS_ONLN))).append(" processors, ");
    text.append(decimal(bytes / 1024 / 1024 / 1024, 1)).append(" GiB, ").append(kernel.sysname);
    return text.append(" ").append(kernel.release);
}

} // namespace servopanel::bench

#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace servopanel::bench {

// Milliseconds that single iterations took, for histograms: a benchmark by itself tells only their mean.
class Samples {
public:
    void add(const std::string& name, double milliseconds) { all_[name].push_back(milliseconds); }
    // {"name": [1.25, 1.5], ...}
    void write(const std::string& file) const;

private:
    std::map<std::string, std::vector<double>> all_;
};

Samples& samples();

// Measures what belongs to an iteration, and keeps it as a sample too when it has a name.
template <class F>
void timed(benchmark::State& state, F work, const std::string& sample = {})
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    state.SetIterationTime(taken.count());
    if (!sample.empty()) samples().add(sample, taken.count() * 1000);
}

// The floor of something that paints: as many pixels are filled.
void fillPixels(benchmark::State& state, std::int64_t pixels);

} // namespace servopanel::bench

#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::bench {

// Milliseconds that single iterations took: a benchmark by itself tells only their mean, and an operator waits for each.
class Samples {
public:
    std::vector<double>& of(const std::string& name) { return all_[name]; }
    // {"name": [1.25, 1.5], ...}
    void write(const std::string& file) const;

private:
    std::map<std::string, std::vector<double>> all_;
};

Samples& samples();

// Measures what belongs to an iteration of a benchmark, and keeps it as a sample under the name that the benchmark has in
// its own report: "tickUnchanged/trace:0/diagnosis:1". A benchmark needs a fixed number of iterations for that; otherwise
// those that are made to find out how many it takes are among the samples.
class Iterations {
public:
    Iterations(
        benchmark::State& state, std::string name, std::initializer_list<std::string_view> arguments = {});

    template <class F>
    void time(F work)
    {
        const auto begin = std::chrono::steady_clock::now();
        work();
        take(std::chrono::steady_clock::now() - begin);
    }
    // Measured by somebody else.
    void take(std::chrono::duration<double> taken)
    {
        state_.SetIterationTime(taken.count());
        samples_.push_back(taken.count() * 1000);
    }

private:
    benchmark::State& state_;
    std::vector<double>& samples_;
};

// The floor of something that paints: as many pixels are filled.
void fillPixels(std::int64_t pixels, benchmark::State& state, Iterations iterations);

} // namespace servopanel::bench

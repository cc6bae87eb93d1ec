#include "samples.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <utility>

namespace servopanel::bench {

void Samples::write(const std::string& file) const
{
    std::ofstream out{file};
    out << "{";
    const char* between = "\n";
    for (const auto& [name, values] : all_) {
        out << between << '"' << name << "\": [";
        for (std::size_t i = 0; i < values.size(); ++i)
            out << (i == 0 ? "" : ", ") << values[i];
        out << "]";
        between = ",\n";
    }
    out << "\n}\n";
    if (!out.flush()) throw std::runtime_error{"cannot write " + file};
}

Samples& samples()
{
    static Samples all;
    return all;
}

namespace {

std::string fullName(
    const benchmark::State& state, std::string name, std::initializer_list<std::string_view> arguments)
{
    std::size_t i = 0;
    for (const std::string_view argument : arguments)
        name.append("/").append(argument).append(":").append(std::to_string(state.range(i++)));
    return name;
}

} // namespace

Iterations::Iterations(
    benchmark::State& state, std::string name, std::initializer_list<std::string_view> arguments)
    : state_{state}
    , samples_{samples().of(fullName(state, std::move(name), arguments))}
{
}

void fillPixels(std::int64_t pixels, benchmark::State& state, Iterations iterations)
{
    std::vector<std::uint32_t> memory(static_cast<std::size_t>(pixels));
    std::uint32_t colour = 0;
    for (auto _ : state)
        iterations.time([&] {
            std::fill(memory.begin(), memory.end(), ++colour);
            benchmark::ClobberMemory();
        });
}

} // namespace servopanel::bench

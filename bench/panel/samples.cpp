#include "samples.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

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

void fillPixels(benchmark::State& state, std::int64_t pixels)
{
    std::vector<std::uint32_t> memory(static_cast<std::size_t>(pixels));
    std::uint32_t colour = 0;
    for (auto _ : state)
        timed(state, [&] {
            std::fill(memory.begin(), memory.end(), ++colour);
            benchmark::ClobberMemory();
        });
}

} // namespace servopanel::bench

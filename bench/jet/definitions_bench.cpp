// Definitions read and written back by the panel, beside mdb-export, which prints the same table, and the floor: the
// bytes of the file read at once.
#include "jet/sample_definitions.h"
#include "support/read_at_once.h"
#include "support/run.h"

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <unistd.h>

#include <stdexcept>

namespace servopanel::jet {

namespace {

using namespace testing;
using bench::run;

// Formats and sizes: 60 rows are the definitions of one servo or two, 2000 are what the panel keeps at most.
void sizes(benchmark::internal::Benchmark* bench)
{
    for (const JetVersion version : {JetVersion::Jet3, JetVersion::Jet4})
        for (const int rows : {60, 2000})
            bench->Args({version == JetVersion::Jet3 ? 3 : 4, rows});
    bench->ArgNames({"jet", "rows"})->Unit(benchmark::kMillisecond)->UseRealTime();
}

SampleProject project(const benchmark::State& state)
{
    const JetVersion version = state.range(0) == 3 ? JetVersion::Jet3 : JetVersion::Jet4;
    return SampleProject{sampleRows(static_cast<std::size_t>(state.range(1))), {.version = version}};
}

// What the panel does when a servo is chosen: opens the file, takes every value of every row.
void panelReads(benchmark::State& state)
{
    SampleProject sample = project(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(sample.rows());
}
BENCHMARK(panelReads)->Apply(sizes);

// What the panel does when a definition is confirmed: every row is updated, one value is another one.
void panelWritesBack(benchmark::State& state)
{
    SampleProject sample = project(state);
    double value = 0;
    for (auto _ : state) {
        const auto database = sample.open();
        const auto records = database->openRecordSet(SampleProject::query);
        bool isFirst = true;
        for (; !records->atEnd(); records->moveNext()) {
            records->edit();
            for (const std::string_view column :
                {"abs_max", "abs_min", "offset_or_bitno", "Max", "Min", "Pass"})
                records->setField(column, records->field(column));
            if (isFirst) records->setField("Max", value += 1);
            isFirst = false;
            records->update();
        }
        database->close();
    }
}
BENCHMARK(panelWritesBack)->Apply(sizes);

// The floor of that: as many bytes are written into a file and are on the disk.
void bytesAreWritten(benchmark::State& state)
{
    const SampleProject sample = project(state);
    const Bytes bytes = bytesOf(sample.file());
    const std::filesystem::path file = sample.file().parent_path() / "floor";
    for (auto _ : state) {
        const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        const bool isWritten = descriptor >= 0
            && ::write(descriptor, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size())
            && ::fsync(descriptor) == 0;
        ::close(descriptor);
        if (!isWritten) throw std::runtime_error{"cannot write " + file.string()};
    }
}
BENCHMARK(bytesAreWritten)->Apply(sizes);

void servoDefsExports(benchmark::State& state)
{
    const SampleProject sample = project(state);
    for (auto _ : state)
        run({SERVO_DEFS, "export", sample.file()});
}
BENCHMARK(servoDefsExports)->Apply(sizes);

void mdbExportExports(benchmark::State& state)
{
    const SampleProject sample = project(state);
    for (auto _ : state)
        run({"mdb-export", sample.file(), "PRESET_DEFS"});
}
BENCHMARK(mdbExportExports)->Apply(sizes);

// What starting any program costs.
void anEmptyProgramStarts(benchmark::State& state)
{
    for (auto _ : state)
        run({"true"});
}
BENCHMARK(anEmptyProgramStarts)->Unit(benchmark::kMillisecond)->UseRealTime();

// The floor of whoever reads: the bytes are read at once.
void bytesAreRead(benchmark::State& state)
{
    const SampleProject sample = project(state);
    const std::filesystem::path file = sample.file();
    std::string content;
    for (auto _ : state) {
        bench::readAtOnce(file, content);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(bytesAreRead)->Apply(sizes);

} // namespace

} // namespace servopanel::jet

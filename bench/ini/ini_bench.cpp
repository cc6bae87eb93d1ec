// An INI file loaded and looked up by the library, beside what a C++ program would take instead (inih, SimpleIni,
// QSettings), and beside the floor: the bytes of the file
// read at once.
#include "config/mservice.h"
#include "portable/path_mapping.h"
#include "portable/portable_files.h"
#include "portable/temporary_folder.h"
#include "support/fakes.h"
#include "support/read_at_once.h"

#include <benchmark/benchmark.h>

#include <QSettings>

#include <INIReader.h>
#define SI_NO_CONVERSION // the files are UTF-8 already
#include <SimpleIni.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace servopanel {

namespace {

// Ten entries in each section, as a project's files have them.
constexpr int entriesOfSection = 10;

struct Sample {
    explicit Sample(int count)
        : entries{count}
    {
        std::ofstream out{file};
        for (int i = 0; i < entries; ++i) {
            if (i % entriesOfSection == 0) out << "[" << section(i) << "]\r\n";
            out << entry(i) << "=" << value(i) << "\r\n";
        }
    }

    static std::string section(int i) { return std::to_string(i / entriesOfSection) + "Machine"; }
    static std::string entry(int i) { return "Servo" + std::to_string(i % entriesOfSection); }
    static std::string value(int i) { return std::to_string(i) + " caption of a parameter"; }

    int entries;
    tests::TemporaryFolder folder;
    std::filesystem::path file = folder.path() / "sample.ini";
};

// The library on real files.
struct Library {
    explicit Library(const Sample& sample)
        : mapping{sample.folder.path()}
        , name{mapping.fullName("sample.ini")}
    {
    }

    void load()
    {
        if (!service.OpenIni(name, false)) throw std::runtime_error{"the library cannot load the sample"};
    }

    portable::PathMapping mapping;
    portable::PortableFiles files{mapping};
    testing::Surround surround;
    platform::LibraryPlatform fake = surround.platform.library();
    platform::LibraryPlatform real{
        fake.objects, fake.messages, fake.profile, files, fake.surroundings, fake.pictures};
    display::GemeinsamerZustand state;
    testing::ErrorList errors;
    display::Umfeld umfeld{real, state, errors};
    config::MService service{umfeld};
    std::string name;
};

void sizes(benchmark::internal::Benchmark* bench)
{
    bench->Arg(100)->Arg(10'000)->ArgName("entries")->Unit(benchmark::kMicrosecond);
}

// QSettings leaves the upper halves of the vector registers in use, and everything that works with the lower ones is
// slower from then on: twice as slow for what copies texts. Nobody pays for that here but QSettings itself.
#if defined(__x86_64__)
__attribute__((target("avx"))) void clearUpperHalves() { __builtin_ia32_vzeroupper(); }
void freshRegisters()
{
    if (__builtin_cpu_supports("avx")) clearUpperHalves();
}
#else
void freshRegisters() { }
#endif

// A section that is asked for, spread over the whole file.
int asked(int i, int entries) { return static_cast<int>((static_cast<long long>(i) * 7919) % entries); }

void expect(const std::string& is, int i)
{
    if (is != Sample::value(i)) throw std::runtime_error{"'" + is + "' is not " + Sample::value(i)};
}

void loadFloor(benchmark::State& state)
{
    const Sample sample{static_cast<int>(state.range(0))};
    std::string content;
    freshRegisters();
    for (auto _ : state) {
        bench::readAtOnce(sample.file, content);
        benchmark::ClobberMemory();
    }
}

void loadLibrary(benchmark::State& state)
{
    const Sample sample{static_cast<int>(state.range(0))};
    Library library{sample};
    freshRegisters();
    for (auto _ : state) {
        library.load();
        library.service.CloseIni();
    }
}

void loadInih(benchmark::State& state)
{
    const Sample sample{static_cast<int>(state.range(0))};
    freshRegisters();
    for (auto _ : state) {
        const INIReader reader{sample.file.string()};
        if (reader.ParseError() != 0) throw std::runtime_error{"inih cannot load the sample"};
    }
}

void loadSimpleIni(benchmark::State& state)
{
    const Sample sample{static_cast<int>(state.range(0))};
    freshRegisters();
    for (auto _ : state) {
        CSimpleIniA reader;
        if (reader.LoadFile(sample.file.c_str()) != SI_OK)
            throw std::runtime_error{"SimpleIni cannot load the sample"};
    }
}

void loadQSettings(benchmark::State& state)
{
    const Sample sample{static_cast<int>(state.range(0))};
    const QString name = QString::fromStdString(sample.file.string());
    int stamp = 0;
    freshRegisters();
    for (auto _ : state) {
        // Qt keeps what it has parsed as long as the file does not change.
        state.PauseTiming();
        std::filesystem::last_write_time(
            sample.file, std::filesystem::file_time_type::clock::now() + std::chrono::seconds{++stamp});
        state.ResumeTiming();
        const QSettings reader{name, QSettings::IniFormat};
        // Sections are taken apart when they are asked for; the others take them apart at once.
        if (reader.allKeys().size() != sample.entries)
            throw std::runtime_error{"QSettings cannot load the sample"};
    }
}

// Names of all sections and entries, walked through until they are the same.
void lookUpWalk(benchmark::State& state)
{
    const Sample sample{static_cast<int>(state.range(0))};
    std::vector<std::string> sections;
    std::vector<std::string> entries;
    for (int i = 0; i < sample.entries; ++i) {
        if (i % entriesOfSection == 0) sections.push_back(Sample::section(i));
        entries.push_back(Sample::entry(i));
    }
    int i = 0;
    freshRegisters();
    for (auto _ : state) {
        const int n = asked(++i, sample.entries);
        const auto section = std::find(sections.begin(), sections.end(), Sample::section(n));
        const auto first = entries.begin() + (section - sections.begin()) * entriesOfSection;
        const auto entry = std::find(first, first + entriesOfSection, Sample::entry(n));
        if (entry - entries.begin() != n) throw std::runtime_error{"another entry was found"};
    }
}

void lookUpLibrary(benchmark::State& state)
{
    const Sample sample{static_cast<int>(state.range(0))};
    Library library{sample};
    library.load();
    int i = 0;
    freshRegisters();
    for (auto _ : state) {
        const int n = asked(++i, sample.entries);
        expect(library.service.FindeIniEintrag(Sample::section(n), Sample::entry(n), false), n);
    }
}

void lookUpInih(benchmark::State& state)
{
    const Sample sample{static_cast<int>(state.range(0))};
    const INIReader reader{sample.file.string()};
    int i = 0;
    freshRegisters();
    for (auto _ : state) {
        const int n = asked(++i, sample.entries);
        expect(reader.Get(Sample::section(n), Sample::entry(n), ""), n);
    }
}

void lookUpSimpleIni(benchmark::State& state)
{
    const Sample sample{static_cast<int>(state.range(0))};
    CSimpleIniA reader;
    reader.LoadFile(sample.file.c_str());
    int i = 0;
    freshRegisters();
    for (auto _ : state) {
        const int n = asked(++i, sample.entries);
        expect(reader.GetValue(Sample::section(n).c_str(), Sample::entry(n).c_str(), ""), n);
    }
}

void lookUpQSettings(benchmark::State& state)
{
    const Sample sample{static_cast<int>(state.range(0))};
    const QSettings reader{QString::fromStdString(sample.file.string()), QSettings::IniFormat};
    int i = 0;
    freshRegisters();
    for (auto _ : state) {
        const int n = asked(++i, sample.entries);
        expect(reader.value(QString::fromStdString(Sample::section(n) + "/" + Sample::entry(n)))
                   .toString()
                   .toStdString(),
            n);
    }
}

BENCHMARK(loadFloor)->Apply(sizes);
BENCHMARK(loadLibrary)->Apply(sizes);
BENCHMARK(loadInih)->Apply(sizes);
BENCHMARK(loadSimpleIni)->Apply(sizes);
BENCHMARK(loadQSettings)->Apply(sizes);
BENCHMARK(lookUpWalk)->Apply(sizes);
BENCHMARK(lookUpLibrary)->Apply(sizes);
BENCHMARK(lookUpInih)->Apply(sizes);
BENCHMARK(lookUpSimpleIni)->Apply(sizes);
BENCHMARK(lookUpQSettings)->Apply(sizes);

} // namespace

} // namespace servopanel

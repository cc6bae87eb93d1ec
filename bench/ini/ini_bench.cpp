// An INI file loaded and looked up by the library, beside what a C++ program would take instead (inih, SimpleIni,
// QSettings), and beside the floor: the bytes of the file read at once.
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
#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace servopanel {

namespace {

// Ten entries in each section, as a project's files have them.
constexpr int entriesOfSection = 10;

// Two files of the same names and of nearly the same size, in which every value has another length than in the other:
// they are loaded in turn, because who loads a file once more may have room for its texts already.
struct Sample {
    explicit Sample(const benchmark::State& state)
        : entries{static_cast<int>(state.range(0))}
    {
        for (int which = 0; which < 2; ++which) {
            std::ofstream out{file(which)};
            for (int i = 0; i < entries; ++i) {
                if (i % entriesOfSection == 0) out << "[" << section(i) << "]\r\n";
                out << entry(i) << "=" << value(i, which) << "\r\n";
            }
        }
    }

    static std::string section(int i) { return std::to_string(i / entriesOfSection) + "Machine"; }
    static std::string entry(int i) { return "Servo" + std::to_string(i % entriesOfSection); }
    static std::string value(int i, int which = 0)
    {
        return std::to_string(i) + (i % 2 == which ? " short caption" : " caption of a parameter of a servo");
    }

    static std::string name(int which) { return which == 0 ? "one.ini" : "other.ini"; }
    std::filesystem::path file(int which = 0) const { return folder.path() / name(which); }

    int entries;
    tests::TemporaryFolder folder;
};

// The library on real files.
struct Library {
    explicit Library(const Sample& sample)
        : mapping{sample.folder.path()}
        , names{mapping.fullName(Sample::name(0)), mapping.fullName(Sample::name(1))}
    {
    }

    void load(config::MService& service, int which = 0)
    {
        if (!service.OpenIni(names[which], false))
            throw std::runtime_error{"the library cannot load the sample"};
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
    std::array<std::string, 2> names;
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

// Loads the two files in turn.
template <class Load>
void loadInTurn(benchmark::State& state, Load load)
{
    int which = 0;
    freshRegisters();
    for (auto _ : state) {
        load(which);
        which = 1 - which;
    }
}

void loadFloor(benchmark::State& state)
{
    const Sample sample{state};
    const std::array<std::filesystem::path, 2> files{sample.file(0), sample.file(1)};
    std::string content;
    loadInTurn(state, [&](int which) {
        bench::readAtOnce(files[which], content);
        benchmark::ClobberMemory();
    });
}

// As the panel does: what a file is loaded into lives as long as the program.
void loadLibrary(benchmark::State& state)
{
    const Sample sample{state};
    Library library{sample};
    config::MService service{library.umfeld};
    loadInTurn(state, [&](int which) {
        library.load(service, which);
        service.CloseIni();
    });
}

// As its peers do: from nothing, and everything is given back.
void loadLibraryFirst(benchmark::State& state)
{
    const Sample sample{state};
    Library library{sample};
    loadInTurn(state, [&](int which) {
        config::MService service{library.umfeld};
        library.load(service, which);
    });
}

void loadInih(benchmark::State& state)
{
    const Sample sample{state};
    const std::array<std::string, 2> files{sample.file(0).string(), sample.file(1).string()};
    loadInTurn(state, [&](int which) {
        const INIReader reader{files[which]};
        if (reader.ParseError() != 0) throw std::runtime_error{"inih cannot load the sample"};
    });
}

void loadSimpleIni(benchmark::State& state)
{
    const Sample sample{state};
    const std::array<std::string, 2> files{sample.file(0).string(), sample.file(1).string()};
    loadInTurn(state, [&](int which) {
        CSimpleIniA reader;
        if (reader.LoadFile(files[which].c_str()) != SI_OK)
            throw std::runtime_error{"SimpleIni cannot load the sample"};
    });
}

void loadQSettings(benchmark::State& state)
{
    const Sample sample{state};
    const std::array<QString, 2> files{
        QString::fromStdString(sample.file(0).string()), QString::fromStdString(sample.file(1).string())};
    int stamp = 0;
    loadInTurn(state, [&](int which) {
        // Qt keeps what it has parsed as long as the file does not change.
        state.PauseTiming();
        std::filesystem::last_write_time(sample.file(which),
            std::filesystem::file_time_type::clock::now() + std::chrono::seconds{++stamp});
        state.ResumeTiming();
        const QSettings reader{files[which], QSettings::IniFormat};
        // Sections are taken apart when they are asked for; the others take them apart at once.
        if (reader.allKeys().size() != sample.entries)
            throw std::runtime_error{"QSettings cannot load the sample"};
    });
}

// What is asked for, and what has to come of it.
struct Question {
    std::string section;
    std::string entry;
    QString key; // section and entry
    std::string value;
};

// All entries, in an order that leads all over the file.
std::vector<Question> questions(const Sample& sample)
{
    std::vector<Question> all;
    for (int i = 0; i < sample.entries; ++i) {
        const int n = static_cast<int>(i * 7919LL % sample.entries);
        const std::string section = Sample::section(n);
        const std::string entry = Sample::entry(n);
        all.push_back({section, entry, QString::fromStdString(section + "/" + entry), Sample::value(n)});
    }
    return all;
}

const std::string& plain(const std::string& text) { return text; }
std::string plain(const char* text) { return text; }
std::string plain(const QString& text) { return text.toStdString(); }

// One look-up after the other, each handing out the value in the way of who looks it up. That all are right is seen
// before.
template <class Find>
void lookUp(benchmark::State& state, const Sample& sample, Find find)
{
    const std::vector<Question> all = questions(sample);
    for (const Question& question : all)
        if (plain(find(question)) != question.value)
            throw std::runtime_error{"there is another value than " + question.value};
    std::size_t i = 0;
    freshRegisters();
    for (auto _ : state) {
        benchmark::DoNotOptimize(find(all[i]));
        if (++i == all.size()) i = 0;
    }
}

// Names of all sections and entries, walked through until they are the same.
void lookUpWalk(benchmark::State& state)
{
    const Sample sample{state};
    std::vector<std::string> sections;
    std::vector<std::string> entries;
    std::vector<std::string> values;
    for (int i = 0; i < sample.entries; ++i) {
        if (i % entriesOfSection == 0) sections.push_back(Sample::section(i));
        entries.push_back(Sample::entry(i));
        values.push_back(Sample::value(i));
    }
    lookUp(state, sample, [&](const Question& question) -> std::string {
        const auto section = std::find(sections.begin(), sections.end(), question.section);
        const auto first = entries.begin() + (section - sections.begin()) * entriesOfSection;
        const auto entry = std::find(first, first + entriesOfSection, question.entry);
        return values[static_cast<std::size_t>(entry - entries.begin())];
    });
}

void lookUpLibrary(benchmark::State& state)
{
    const Sample sample{state};
    Library library{sample};
    config::MService service{library.umfeld};
    library.load(service);
    lookUp(state, sample, [&](const Question& question) {
        return service.FindeIniEintrag(question.section, question.entry, false);
    });
}

void lookUpInih(benchmark::State& state)
{
    const Sample sample{state};
    const INIReader reader{sample.file().string()};
    lookUp(state, sample,
        [&](const Question& question) { return reader.Get(question.section, question.entry, ""); });
}

void lookUpSimpleIni(benchmark::State& state)
{
    const Sample sample{state};
    CSimpleIniA reader;
    reader.LoadFile(sample.file().c_str());
    lookUp(state, sample, [&](const Question& question) {
        return reader.GetValue(question.section.c_str(), question.entry.c_str(), "");
    });
}

void lookUpQSettings(benchmark::State& state)
{
    const Sample sample{state};
    const QSettings reader{QString::fromStdString(sample.file().string()), QSettings::IniFormat};
    lookUp(state, sample, [&](const Question& question) { return reader.value(question.key).toString(); });
}

BENCHMARK(loadFloor)->Apply(sizes);
BENCHMARK(loadLibrary)->Apply(sizes);
BENCHMARK(loadLibraryFirst)->Apply(sizes);
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

// The definitions of one page looked up by the library: 42 fields among 2000 definitions. Beside an index of the standard
// library over the same rows, made anew for each page as the rows are read anew, and beside one walk over the rows for
// each field that compares a number.
#include "config/mservo_modul.h"
#include "support/fakes.h"

#include <benchmark/benchmark.h>

#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace servopanel::jet {

namespace {

constexpr int definitions = 2000;
constexpr int fields = 42;
constexpr int elementsOfVariable = 20;

std::string variable(int definition)
{
    const std::string servo = std::to_string(definition / elementsOfVariable);
    return std::string{"Ch1.M1_T_servo_"}.append(servo).append("<.mM1_servo_para_").append(servo).append(">");
}
std::int16_t element(int definition) { return static_cast<std::int16_t>(definition % elementsOfVariable); }
// Fields of a servo in the middle; the last two are not in the table.
int asked(int field) { return field < fields - 2 ? definitions / 2 + field : definitions + field; }

class Definitions {
public:
    Definitions()
    {
        surround_.world().existing.insert("P:\\Servo\\Servo.mdb");
        auto& rows = surround_.platform.tables["P:\\Servo\\Servo.mdb"].rows;
        for (int i = 0; i < definitions; ++i)
            rows.push_back({i + 1,
                {{"MACHINE_TYPE", std::string{"M1"}}, {"VAR_NAME", variable(i)},
                    {"OFFSET_OR_BITNO", element(i)}, {"ABS_MIN", -100.0}, {"ABS_MAX", 100.0}, {"MIN", -10.0},
                    {"MAX", 10.0}, {"PASS", std::int16_t{2}}}});
        if (module.INI_Datenbank_Einlesen("Servo\\Servo.mdb", "M1", "alle") != definitions)
            throw std::runtime_error{"the definitions were not read"};
    }

private:
    testing::Surround surround_;
    display::MGlobal global_{surround_.umfeld};

public:
    config::MServoModul module{surround_.umfeld, global_};
};

void expect(int position, int definition)
{
    if (position != (definition < definitions ? definition + 1 : -1))
        throw std::runtime_error{"another definition was found"};
}

void lookUpOfPage(benchmark::State& state)
{
    Definitions sample;
    for (auto _ : state)
        for (int field = 0; field < fields; ++field) {
            const int wanted = asked(field);
            expect(sample.module.INI_Daten_Lesen(variable(wanted), element(wanted)), wanted);
        }
}

void lookUpByMap(benchmark::State& state)
{
    Definitions sample;
    for (auto _ : state) {
        std::map<std::pair<std::string_view, std::int16_t>, int> positions;
        for (int i = 1; i <= definitions; ++i) {
            const config::ParamDef& row = sample.module.ParamDefs()[i - 1];
            positions[{row.VarName, row.OffsetOderBitNr}] = i;
        }
        for (int field = 0; field < fields; ++field) {
            const int wanted = asked(field);
            const std::string name = variable(wanted);
            const auto found = positions.find({name, element(wanted)});
            expect(found == positions.end() ? -1 : found->second, wanted);
        }
    }
}

void walkOfPage(benchmark::State& state)
{
    Definitions sample;
    for (auto _ : state)
        for (int field = 0; field < fields; ++field) {
            int same = 0;
            for (int i = 0; i < definitions; ++i)
                same += sample.module.ParamDefs()[i].OffsetOderBitNr == element(asked(field)) ? 1 : 0;
            benchmark::DoNotOptimize(same);
        }
}

BENCHMARK(lookUpOfPage)->Unit(benchmark::kMillisecond);
BENCHMARK(lookUpByMap)->Unit(benchmark::kMillisecond);
BENCHMARK(walkOfPage)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace servopanel::jet

#include "monkey/long_run.h"
#include "monkey/play.h"
#include "support/standard_project.h"

#include <charconv>
#include <cstdio>
#include <fstream>
#include <string>
#include <string_view>

namespace {

constexpr std::string_view usage =
    R"(servo-monkey [--seed N] [--runs N] [--commands N] [--keep FOLDER]
servo-monkey --days N

Plays random touches, keys, values and failures on the servo pages without a screen, and checks after each that nothing
reaches the machine that nobody confirmed, that nothing untouched changes, and that one picture is to be seen.

  --seed N        of the first run, at first 1
  --runs N        how many runs, at first 1000, each with the next seed
  --commands N    of each run, at first 1000
  --keep FOLDER   where a scenario for servo-replay is kept of a run that breaks a rule, at first the current folder

With --days it plays the ticks of the page's timer of that many days in fast motion instead, with looks at all servos, their
diagnosis pages and the menu, first with a machine that answers and then with one that does not, and compares the memory at
the end with that after the first hour.

Ends with 0 when all rules held and the memory stayed, with 1 when not.
)";

bool number(std::string_view text, unsigned& value)
{
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc{} && result.ptr == text.data() + text.size();
}

} // namespace

int main(int count, char** arguments)
{
    using namespace servopanel;
    unsigned seed = 1;
    unsigned runs = 1000;
    unsigned commands = 1000;
    unsigned days = 0;
    std::string keep = ".";
    for (int i = 1; i < count; i += 2) {
        const std::string_view option = arguments[i];
        const std::string_view value = i + 1 < count ? arguments[i + 1] : "";
        const bool known = (option == "--seed" && number(value, seed))
            || (option == "--runs" && number(value, runs))
            || (option == "--commands" && number(value, commands))
            || (option == "--days" && number(value, days) && days > 0)
            || (option == "--keep" && !value.empty());
        if (!known) {
            std::fputs(usage.data(), option == "--help" ? stdout : stderr);
            return option == "--help" ? 0 : 2;
        }
        if (option == "--keep") keep = value;
    }

    if (days > 0) return monkey::playDays(days) ? 0 : 1;

    for (unsigned run = 0; run < runs; ++run) {
        const auto found = monkey::playSeed(seed + run, commands);
        if (!found) continue;
        const monkey::Finding least = monkey::shrunk(*found, monkey::play);
        const std::string file = keep + "/monkey_" + std::to_string(seed + run) + ".scenario";
        std::ofstream out{file};
        out << "# " << least.rule << "\n" << testing::standardProject;
        for (const std::string& command : least.commands)
            out << command << "\n";
        std::printf("seed %u: %s\n  after %zu commands, the least of them in %s\n", seed + run,
            least.rule.c_str(), found->commands.size(), file.c_str());
        return 1;
    }
    std::printf("%u runs of %u commands: all rules held\n", runs, commands);
    return 0;
}

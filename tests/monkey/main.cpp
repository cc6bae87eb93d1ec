#include "monkey/allocations.h"
#include "monkey/long_run.h"
#include "monkey/program.h"

namespace {

constexpr std::string_view usage =
    R"(servo-monkey [--seed N] [--runs N] [--commands N] [--keep FOLDER]
servo-monkey --play FILE
servo-monkey --days N

Plays random touches, keys, values and failures on the servo pages without a screen, and checks after each that nothing
reaches the machine but what was entered and confirmed, that what was entered is to be seen as such, that one picture is
to be seen, and at the end that the memory is given back. Says at the end what was done, and how many commands were
skipped because they could not be done then.

  --seed N        of the first run, at first 1
  --runs N        how many runs, at first 1000, each with the next seed
  --commands N    of each run, at first 1000
  --keep FOLDER   where a scenario for servo-replay is kept of a run that breaks a rule or crashes, as
                  servo-monkey_SEED.scenario, at first the system's folder for temporary files
  --play FILE     plays such a scenario again, with the same rules

With --days it plays the ticks of the page's timer of that many days in fast motion instead, with looks at all servos, their
diagnosis pages and the menu, first with a machine that answers and then with one that does not, and compares the memory at
the end with that after the first hour.

Ends with 0 when all rules held and the memory stayed, with 1 when not, with 2 when nothing could be played.
)";

} // namespace

int main(int count, char** arguments)
{
    using namespace servopanel::monkey;
    return runProgram(count, arguments,
        {.name = "servo-monkey",
            .usage = usage,
            .runs = 1000,
            .commands = 1000,
            .commandsOf = commandsOf,
            .played =
                [](const Commands& commands, const Progress& progress, std::string_view rule) {
                    const bool isOfMemory = rule.empty() || rule == memoryRule;
                    return played(commands, progress, isOfMemory ? allocationsAlive : nullptr);
                },
            .playDays = playDays});
}

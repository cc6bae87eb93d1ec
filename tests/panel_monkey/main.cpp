#include "monkey/program.h"
#include "panel_monkey/long_run.h"
#include "panel_monkey/offscreen_qt.h"
#include "panel_monkey/panel_run.h"

namespace {

constexpr std::string_view usage =
    R"(panel-monkey [--seed N] [--runs N] [--commands N] [--keep FOLDER]
panel-monkey --play FILE
panel-monkey --days N

Plays random touches, keys, values, failures and losses on the real panel without a monitor, and checks after each that
nothing reaches the machine that nobody confirmed, that nothing untouched changes, that one picture is to be seen, and
that the panel goes on to answer.

  --seed N        of the first run, at first 1
  --runs N        how many runs, at first 100, each with a new panel and the next seed
  --commands N    of each run, at first 500
  --keep FOLDER   where a scenario is kept of a run that breaks a rule or crashes, as panel-monkey_SEED.scenario, at
                  first the system's folder for temporary files; servo-replay plays what the library got, and for that
                  what only a panel has stands in it as comments
  --play FILE     plays such a scenario again on a panel, with those comments

With --days it leaves two panels with the demonstration project running for that many days in fast motion instead, with
looks at servos, their diagnosis pages, trends, the reports and the menu; both at the same time, one with machines that
answer and one with none that does. Of each it compares the least memory of the last seventh of the rounds with the least
of the first seventh.

Says at the end what was done, and how many commands were skipped because they could not be done then. Ends with 0 when
all rules held and the memory stayed, with 1 when not, with 2 when nothing could be played.
)";

} // namespace

int main(int count, char** arguments)
{
    using namespace servopanel::monkey;
    return runProgram(count, arguments,
        {.name = "panel-monkey",
            .usage = usage,
            .runs = 100,
            .commands = 500,
            .commandsOf = commandsOnPanel,
            // Each run is a process of its own, and Qt begins in it.
            .played =
                [](const Commands& commands, const Progress& progress, std::string_view) {
                    const OffscreenQt qt;
                    return playedOnPanel(commands, progress);
                },
            .playDays = playDaysOnPanel});
}

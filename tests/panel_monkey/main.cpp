#include "monkey/program.h"
#include "panel/look/fonts.h"
#include "panel_monkey/panel_run.h"

#include <QApplication>
#include <QStyleFactory>

namespace {

constexpr std::string_view usage =
    R"(panel-monkey [--seed N] [--runs N] [--commands N] [--keep FOLDER]
panel-monkey --play FILE

Plays random touches, keys, values, failures and losses on the real panel without a monitor, and checks after each that
nothing reaches the machine that nobody confirmed, that nothing untouched changes, that one picture is to be seen, and
that the panel goes on to answer.

  --seed N        of the first run, at first 1
  --runs N        how many runs, at first 100, each with a new panel and the next seed
  --commands N    of each run, at first 500
  --keep FOLDER   where a scenario for servo-replay is kept of a run that breaks a rule, at first the current folder;
                  what only a panel has stands in it as comments
  --play FILE     plays such a scenario again on a panel, with those comments

Says at the end what was done. Ends with 0 when all rules held, with 1 when one was broken, with 2 when nothing could be
played.
)";

// Each run is a process of its own, and Qt begins in it.
servopanel::monkey::Played playedInQt(
    const servopanel::monkey::Commands& commands, const servopanel::monkey::Progress& progress)
{
    using namespace servopanel;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    char name[] = "panel-monkey";
    char* arguments[] = {name, nullptr};
    const QApplication application{count, arguments};
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setFont(panel::panelFont(14));
    return monkey::playedOnPanel(commands, progress);
}

} // namespace

int main(int count, char** arguments)
{
    using namespace servopanel::monkey;
    return runProgram(count, arguments,
        {.usage = usage,
            .runs = 100,
            .commands = 500,
            .commandsOf = commandsOnPanel,
            .played = [](const Commands& commands, const Progress& progress,
                          std::string_view) { return playedInQt(commands, progress); },
            .playDays = {}});
}

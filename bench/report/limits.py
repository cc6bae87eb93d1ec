"""Whether the panel keeps the limits that it was given."""

import statistics

from figures import REPETITIONS, duration, percentile, round_duration, three_digits
from markdown import paragraph, table

MENU_LIMIT = 0.300  # seconds from the start of the program
PAGE_LIMIT = 0.050  # from the touch
UNCHANGED_LIMIT = 0.0002
CHANGING_LIMIT = 2.0  # percent of a core at ten ticks a second
TICKS_PER_SECOND = 10
INI_PEERS = {"Inih": "inih", "SimpleIni": "SimpleIni", "QSettings": "`QSettings`"}
ENTRIES = (100, 10000)
UNCHANGED = "tickUnchanged/trace:0/diagnosis:1"
CHANGING = "tickChanging/trace:0/diagnosis:1"

# What an operator waits for: (what, name, limit, by which share of them it is judged).
SINGLES = [
    ("from the start of the program to the painted menu", "processToMenu", MENU_LIMIT, 1.0),
    ("the same, the first start of an installation: no picture is scaled yet", "processToFirstMenu", MENU_LIMIT, 1.0),
    ("from the touch to the painted page, its first time", "openPageFirst/trace:0", PAGE_LIMIT, 1.0),
    ("the same, any other time", "openPageAgain/trace:0", PAGE_LIMIT, 1.0),
    ("a refresh of a diagnosis page on which nothing has changed", UNCHANGED, UNCHANGED_LIMIT, 0.99),
]


def met(value, limit):
    return "yes" if value <= limit else "**no**"


def core_percents(results):
    """Of each repetition, ten ticks a second on which every value changes, in percent of one processor."""
    return [seconds * TICKS_PER_SECOND * 100 for seconds in results.figures[CHANGING].counters["core_seconds"]]


def single_row(results, what, name, limit, share):
    taken = results.singles(name)
    return [what, round_duration(limit), f"{len(taken):,}", duration(percentile(taken, 0.5)),
            duration(percentile(taken, 0.99)), duration(max(taken)), "slowest" if share == 1.0 else "99 %",
            met(percentile(taken, share), limit)]


def ini_row(results, entries):
    """Whether the library loads an INI file more quickly than each of its peers."""
    def figure(who):
        return results.figures[f"load{who}/entries:{entries}"]

    quickest = min(INI_PEERS, key=lambda who: figure(who).median)
    limit, own = figure(quickest).median, figure("Library")
    return [f"an INI file of {entries:,} entries loaded, against {', '.join(INI_PEERS.values())}",
            f"the quickest of them: {INI_PEERS[quickest]}, {duration(limit)}", duration(own.median),
            duration(max(own.seconds)), met(max(own.seconds), limit)]


def section(results):
    percents = core_percents(results)
    means = [["ten refreshes a second on which every value changes, painting included",
              f"{CHANGING_LIMIT:.0f} % of a core", f"{three_digits(statistics.median(percents))} %", f"{three_digits(max(percents))} %",
              met(max(percents), CHANGING_LIMIT)]] + [ini_row(results, entries) for entries in ENTRIES]
    ticks = results.singles(UNCHANGED)
    late = sum(seconds > UNCHANGED_LIMIT for seconds in ticks)
    unchanged, changing = results.figures[UNCHANGED], results.figures[CHANGING]
    return ("## Limits\n\n"
            + paragraph("Each start, each touch and each refresh measured by itself. An operator waits for every start and "
                        "every page, so the slowest of all decides. Nobody waits for a refresh on which nothing changes: "
                        "its limit is there so that it leaves the processor to others. Now and then the operating system "
                        "takes the processor away in the middle of one, and the time until it is given back is no work "
                        "of the panel; so 99 % of them decide."
                        f" Of {len(ticks):,} refreshes {late or 'none'} took longer than {round_duration(UNCHANGED_LIMIT)}.")
            + table(["what", "limit", "times", "half within", "99 % within", "slowest", "judged by", "met"],
                    [single_row(results, *single) for single in SINGLES])
            + paragraph(f"What counts in the sum is judged by the mean of a round, the slowest of {REPETITIONS}; "
                        "a peer's limit is the median of its own rounds:")
            + table(["what", "limit", "median of the rounds", "slowest round", "met"], means)
            + paragraph(f"An unchanged refresh paints {unchanged.count('paintings'):.0f} widgets; the measurement "
                        "fails when it paints any. A changed one paints "
                        f"{changing.count('paintings'):.0f}, with {changing.count('pixels'):,.0f} pixels; where widgets lie "
                        "upon each other each counts. Either "
                        f"reads {unchanged.count('reads'):.0f} variables, each as a whole. All of this is the "
                        "demonstration project with its machine in the same program; how a panel starts on a big line "
                        "is further below."))

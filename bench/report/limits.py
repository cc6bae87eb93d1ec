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
    ("from the first touch of a program just started to the painted page", "firstTouch", PAGE_LIMIT, 1.0),
    ("from a touch to the painted page, any other time", "openPageAgain/trace:0", PAGE_LIMIT, 1.0),
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


def ini_row(results, entries, how, library):
    """Whether the library loads an INI file more quickly than each of its peers."""
    def figure(who):
        return results.figures[f"load{who}/entries:{entries}"]

    quickest = min(INI_PEERS, key=lambda who: figure(who).median)
    limit, own = figure(quickest).median, figure(library)
    return [f"an INI file of {entries:,} entries loaded {how}, against {', '.join(INI_PEERS.values())}",
            f"the quickest of them: {INI_PEERS[quickest]}, {duration(limit)}", duration(own.median),
            duration(max(own.seconds)), met(max(own.seconds), limit)]


def section(results):
    percents = core_percents(results)
    means = [["ten refreshes a second on which every value changes, painting included",
              f"{CHANGING_LIMIT:.0f} % of a core", f"{three_digits(statistics.median(percents))} %", f"{three_digits(max(percents))} %",
              met(max(percents), CHANGING_LIMIT)]]
    means += [ini_row(results, entries, how, library) for entries in ENTRIES
              for how, library in (("once more", "Library"), ("from nothing", "LibraryFirst"))]
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
            + paragraph("The first touch is that of a process of its own each time, which is touched as soon as its menu "
                        "is painted and nothing is left to be done.")
            + paragraph(f"What counts in the sum is judged by the mean of a round, the slowest of {REPETITIONS}; "
                        "a peer's limit is the median of its own rounds. What the library loads INI files into lives as long "
                        "as the panel, which reads them again at each page: so once more, another file each time, is what "
                        "an operator waits for. Its peers begin with nothing and give everything back; beside that stands "
                        "the library from nothing:")
            + table(["what", "limit", "median of the rounds", "slowest round", "met"], means)
            + paragraph(f"An unchanged refresh paints {unchanged.count('paintings'):.0f} widgets; the measurement "
                        "fails when it paints any. A changed one paints "
                        f"{changing.count('paintings'):.0f}, with {changing.count('pixels'):,.0f} pixels; where widgets lie "
                        "upon each other each counts. Either "
                        f"reads {unchanged.count('reads'):.0f} variables, each as a whole. All of this is the "
                        "demonstration project with its machine in the same program; how a panel starts on a big line "
                        "is further below."))

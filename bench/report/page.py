"""The page of the documentation, its pictures, and the lines of the README that quote it."""

import os
import platform
import re
import statistics
import subprocess
import textwrap
import time

from figures import REPETITIONS, duration, percentile, ratio, round_duration, three_digits
from histogram import svg

PAGE = "docs/measurements.md"
PICTURES = "docs/images"
QUOTE = re.compile(r"(<!-- written by \./measure -->\n).*?(<!-- end -->\n)", re.DOTALL)

MENU_LIMIT = 0.300  # seconds from the start of the panel
PAGE_LIMIT = 0.050  # from the touch
UNCHANGED_LIMIT = 0.0002
CHANGING_LIMIT = 2.0  # percent of a core at ten ticks a second
TICKS_PER_SECOND = 10
INI_PEERS = {"Inih": "inih", "SimpleIni": "SimpleIni", "QSettings": "`QSettings`"}
ENTRIES = (100, 10000)


def paragraph(*sentences):
    return textwrap.fill(" ".join(sentences), 118, break_on_hyphens=False) + "\n\n"


def bullet(text):
    return textwrap.fill(text, 118, initial_indent="- ", subsequent_indent="  ", break_on_hyphens=False) + "\n"


def table(head, rows):
    lines = [head, ["---"] * len(head)] + rows
    return "".join(f"| {' | '.join(row)} |\n" for row in lines) + "\n"


def version(package):
    try:
        words = ["dpkg-query", "-W", "-f=${Version}", package]
        return subprocess.run(words, capture_output=True, text=True, check=True).stdout
    except (OSError, subprocess.CalledProcessError):
        return "of unknown version"


def computer():
    name = "unknown processor"
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        for line in file:
            if line.startswith("model name"):
                name = line.split(":", 1)[1].strip()
                break
    memory = os.sysconf("SC_PHYS_PAGES") * os.sysconf("SC_PAGE_SIZE") / 2 ** 30
    return (f"{name}, {os.cpu_count()} processors, {memory:.1f} GiB, "
            f"{platform.system()} {platform.release()}")


def met(value, limit):
    return "yes" if value <= limit else "**no**"


def introduction(results):
    versions = results.line["versions"]
    libraries = {"Google Benchmark": "libbenchmark-dev", "inih": "libinih-dev", "SimpleIni": "libsimpleini-dev",
                 "pixman": "libpixman-1-dev", "mdbtools": "mdbtools", "Mosquitto": "mosquitto"}
    others = max(run["others"] for run in results.runs.values())
    minutes = sum(run["seconds"] for run in results.runs.values()) / 60
    return "# Measurements\n\n" + paragraph(
        f"Written by `./measure` on {time.strftime('%F')}, from one run of {minutes:.0f} minutes.",
        computer() + ";",
        f"Qt {versions['Qt']}, g++ {versions['g++']}, optimised;",
        ", ".join(f"{name} {version(package)}" for name, package in libraries.items()) + ".",
        f"Meanwhile everything else on the computer took at most {others:.0f} % of a processor.",
    ) + paragraph(
        f"A figure is the median of {REPETITIONS} repetitions, mixed in time with those beside it; a ratio says how many times "
        "the figure of this project it is. The panel paints into memory, at 1280 x 1024 pixels, with the demonstration "
        "project.")


def core_percents(results):
    """Of each repetition, ten ticks a second on which every value changes, in percent of one processor."""
    figure = results.figures["tickChanging/trace:0/diagnosis:1"]
    return [seconds * TICKS_PER_SECOND * 100 for seconds in figure.counters["core_seconds"]]


def ini_row(results, entries):
    """Whether the library loads an INI file more quickly than each of its peers."""
    def figure(who):
        return results.figures[f"load{who}/entries:{entries}"]

    quickest = min(INI_PEERS, key=lambda who: figure(who).median)
    limit, own = figure(quickest).median, figure("Library")
    return [f"an INI file of {entries:,} entries loaded, against {', '.join(INI_PEERS.values())}",
            f"the quickest of them: {INI_PEERS[quickest]}, {duration(limit)}", duration(own.median),
            duration(max(own.seconds)), met(max(own.seconds), limit)]


def targets(results):
    def row(what, name, limit):
        figure = results.figures[name]
        return [what, round_duration(limit), duration(figure.median), duration(max(figure.seconds)),
                met(max(figure.seconds), limit)]

    unchanged = results.figures["tickUnchanged/trace:0/diagnosis:1"]
    changing = results.figures["tickChanging/trace:0/diagnosis:1"]
    percents = core_percents(results)
    rows = [
        row("from the start of the program to the painted menu", "processToMenu", MENU_LIMIT),
        row("from the touch to the painted page, its first time", "openPageFirst/trace:0", PAGE_LIMIT),
        row("the same, any other time", "openPageAgain/trace:0", PAGE_LIMIT),
        row("a refresh of a diagnosis page on which nothing has changed", "tickUnchanged/trace:0/diagnosis:1",
            UNCHANGED_LIMIT),
        ["ten refreshes a second on which every value changes, painting included", f"{CHANGING_LIMIT:.0f} % of a core",
         f"{three_digits(statistics.median(percents))} %", f"{three_digits(max(percents))} %",
         met(max(percents), CHANGING_LIMIT)],
    ] + [ini_row(results, entries) for entries in ENTRIES]
    return ("## Limits\n\n"
            + table(["what", "not more than", "median", "slowest repetition", "met"], rows)
            + paragraph(f"An unchanged refresh paints {unchanged.count('paintings'):.0f} widgets; the measurement "
                        "fails when it paints any. A changed one paints "
                        f"{changing.count('paintings'):.0f}, with {changing.count('pixels'):.0f} pixels. Either "
                        f"reads {unchanged.count('reads'):.0f} variables, each as a whole."))


def with_trace(results, what, name, arguments="", floor=None):
    plain, traced = (results.median(f"{name}/trace:{trace}{arguments}") for trace in (0, 1))
    return [what, duration(plain), duration(traced), ratio(traced, plain),
            "" if floor is None else f"{duration(floor)} ({ratio(floor, plain)})"]


def panel(results):
    rows = [
        with_trace(results, "panel made, menu painted", "startToMenu"),
        with_trace(results, "panel made, page painted", "startToPage"),
        with_trace(results, "page after a touch, first time", "openPageFirst", floor=results.median("openPageFloor")),
        with_trace(results, "page after a touch, any other time", "openPageAgain",
                   floor=results.median("openPageFloor")),
        with_trace(results, "confirm", "confirm", floor=results.median("confirmFloor")),
    ]
    for page, what in enumerate(("parameters", "diagnosis")):
        for values, name, floor in (("nothing changed", "tickUnchanged", "tickFloor"),
                                    ("every value changed", "tickChanging", "tickPaintFloor")):
            rows.append(with_trace(results, f"refresh, {what}, {values}", name, f"/diagnosis:{page}",
                                   results.median(f"{floor}/diagnosis:{page}")))
    window = results.median("processToEmptyWindow")
    start_rows = [[what, duration(results.median(name)), ratio(results.median(name), window)]
                  for what, name in (("to the painted menu", "processToMenu"), ("to the painted page", "processToPage"),
                                     ("floor: a Qt program to its painted empty window", "processToEmptyWindow"))]
    labels = [[what, duration(results.median(ours)), f"{results.figures[plain].count('labels'):.0f}",
               duration(results.median(plain)), ratio(results.median(plain), results.median(ours))]
              for what, ours, plain in (
                  ("page opened, any time but the first", "openPageAgain/trace:0", "plainOpening"),
                  ("refresh, parameters, nothing changed", "tickUnchanged/trace:0/diagnosis:0",
                   "plainParameters/changing:0"),
                  ("refresh, parameters, every value changed", "tickChanging/trace:0/diagnosis:0",
                   "plainParameters/changing:1"),
                  ("refresh, diagnosis, nothing changed", "tickUnchanged/trace:0/diagnosis:1",
                   "plainDiagnosis/changing:0"),
                  ("refresh, diagnosis, every value changed", "tickChanging/trace:0/diagnosis:1",
                   "plainDiagnosis/changing:1"))]
    return ("## The panel\n\n"
            + paragraph("A whole process, from its start until the last pixel is there and it has ended:")
            + table(["process", "median", "times the floor"], start_rows)
            + paragraph("Within a running program, each until the last pixel is painted. The floor of a refresh that "
                        "brings nothing new: its variables are read and compared. The floor of all else: as many "
                        "pixels as it paints are filled.")
            + table(["what", "without a trace", "with a trace", "ratio", "floor (ratio)"], rows)
            + paragraph("Beside a plain window of `QLabel`s that are given texts, and shown where a page is opened: as "
                        "many as the panel paints widgets, on the diagnosis page as many as it has values. They read "
                        "no variables, have no limits and no captions that follow a language:")
            + table(["what", "panel", "labels", "time of the labels", "ratio"], labels)
            + pictures(results, ["tickUnchanged", "tickChanging", "openPageAgain", "confirm"]))


def menu(results):
    rows = []
    for what, name in (("from the sources, scaled and kept", "Sources"), ("from the copies on disk", "Copies"),
                       ("from memory, after a touch", "Memory")):
        ours, plain = results.median(f"menuFrom{name}"), results.median(f"plainFrom{name}")
        floor = results.figures.get(f"floorOf{name}")
        rows.append([what, duration(ours), f"{duration(plain)} ({ratio(plain, ours)})",
                     "" if floor is None else f"{duration(floor.median)} ({ratio(floor.median, ours)})"])
    return ("## A page of the menu\n\n"
            + paragraph("Eight keys with pictures, painted. Beside a window that anybody would put together with eight "
                        "`QLabel`s. The floor: the bytes of the files are read; from memory, as many pixels as the "
                        "panel paints are filled. The panel's figures have the whole screen in them: heading, footer, "
                        "captions.")
            + table(["pictures", "panel", "eight labels (ratio)", "floor (ratio)"], rows))


def side_by_side(results, rows, ours, others):
    """rows: (what, ending of the names); ours and others: (heading, beginning of the names)."""
    lines = []
    for what, ending in rows:
        own = results.median(ours[1] + ending)
        cells = [duration(own)]
        for _, name in others:
            figure = results.figures.get(name + ending) or results.figures.get(name)
            cells.append(f"{duration(figure.median)} ({ratio(figure.median, own)})")
        lines.append([what] + cells)
    return table([""] + [ours[0]] + [heading for heading, _ in others], lines)


def scaling(results):
    rows = [(f"for the panel of {width} pixels", f"/panel:{width}") for width in (1280, 800)]
    return ("## A picture scaled to a key\n\n"
            + paragraph("The picture of a servo, from the canvas that it is drawn on to the size of a key, each pixel "
                        "averaged. The floor touches each pixel of the canvas once.")
            + side_by_side(results, rows, ("panel", "scaledByPanel"),
                           [("`QImage`, smooth", "scaledByQImage"), ("pixman, box", "scaledByPixman"),
                            ("floor", "scalingFloor")]))


def slower_look_ups(results):
    """Names the peers that look up more quickly, and says nothing when there are none."""
    sentences = []
    for entries in ENTRIES:
        own = results.median(f"lookUpLibrary/entries:{entries}")
        quicker = [name for who, name in INI_PEERS.items() if results.median(f"lookUp{who}/entries:{entries}") < own]
        if quicker:
            sentences.append(f"Among {entries:,} entries the library looks up more slowly than {listed(quicker)}.")
    return " ".join(sentences + ["The demonstration project's largest INI file has 63 entries."] if sentences else [])


def listed(names):
    return names[0] if len(names) == 1 else f"{', '.join(names[:-1])} and {names[-1]}"


def ini(results):
    sizes = [(f"{entries:,} entries", f"/entries:{entries}") for entries in ENTRIES]
    return ("## INI files\n\n"
            + paragraph("Ten entries a section. Loaded from the system's cache, beside reading the bytes of the file:")
            + side_by_side(results, sizes, ("library", "loadLibrary"),
                           [("inih", "loadInih"), ("SimpleIni", "loadSimpleIni"), ("`QSettings`", "loadQSettings"),
                            ("floor", "loadFloor")])
            + paragraph("One look-up, of entries all over the file, beside a plain walk over the names of the sections "
                        "and of the entries of one, compared byte by byte. The walk is no floor: whoever sorts or "
                        "hashes the names does with fewer comparisons.", slower_look_ups(results))
            + side_by_side(results, sizes, ("library", "lookUpLibrary"),
                           [("inih", "lookUpInih"), ("SimpleIni", "lookUpSimpleIni"),
                            ("`QSettings`", "lookUpQSettings"), ("plain walk", "lookUpWalk")]))


def definitions(results):
    sizes = [(f"Jet {jet}, {rows} rows", f"/jet:{jet}/rows:{rows}") for jet in (3, 4) for rows in (60, 2000)]
    return ("## Definitions\n\n"
            + paragraph("The panel reads every value of every row; `servo-defs export` and `mdb-export` are whole "
                        "processes that print the table. Floors: the bytes of the file are read, and a process that "
                        "does nothing.")
            + side_by_side(results, sizes, ("panel reads", "panelReads"),
                           [("`servo-defs export`", "servoDefsExports"), ("`mdb-export`", "mdbExportExports"),
                            ("floor: bytes", "bytesAreRead"), ("floor: process", "anEmptyProgramStarts")])
            + paragraph("Written back as after a confirm, every row updated and one value changed: copy, sync, read "
                        "back, compare, rename. Nobody else's tool writes these files here, so it stands beside the floor of "
                        "a file of that size written and synced:")
            + side_by_side(results, sizes, ("panel writes back", "panelWritesBack"),
                           [("floor: bytes", "bytesAreWritten")])
            + paragraph("The 42 fields of a page looked up among 2000 definitions, beside a `std::map` made anew from "
                        "the same rows, and beside a walk over the rows for each field that compares a number:")
            + side_by_side(results, [("42 fields", "")], ("library", "lookUpOfPage"),
                           [("`std::map`", "lookUpByMap"), ("floor", "lookUpFloor")]))


def library(results):
    rows = [with_trace(results, what, name, arguments)[:4] for what, name, arguments in (
        ("a host and a project, nothing shown", "projectAlone", ""),
        ("from nothing to the menu", "startToMenuAlone", ""),
        ("from nothing to a page", "startToPageAlone", ""),
        ("a page opened and left", "openPage", ""),
        ("refresh, parameters", "tick", "/diagnosis:0"),
        ("refresh, diagnosis", "tick", "/diagnosis:1"),
        ("an input and a confirm", "confirmAlone", ""))]
    return ("## The library by itself\n\n"
            + paragraph("On a host in memory that draws nothing:")
            + table(["what", "without a trace", "with a trace", "ratio"], rows))


def line(results):
    found = results.line
    size, shares = found["size"], found["shares_percent"]
    starts, writes, echoes = found["panel_starts_s"], found["writes_ms"], found["echoes_ms"]

    def share_row(what, values):
        return [what] + [f"{values[who]:.1f} %" for who in ("panel", "broker", "machines", "others")]

    def percentiles(what, values):
        return [what] + [duration(percentile(values, share) / 1000) for share in (0.5, 0.9, 0.99, 0.999, 1.0)]

    whole = shares["all"]
    alone = shares["alone"]
    return (f"## A line of {size['machines']} machines with {size['servos']} servos each\n\n"
            + paragraph("One broker on a socket file, all machines in one `servo-machine` with a connection for each, "
                        "one `servo-panel` without a screen on the page of a servo.",
                        f"{size['variables']} process variables; of each servo the 40 values of both diagnosis pages "
                        f"change every {size['period_ms']} ms: {found['values_per_s']['all']:.0f} values in a second "
                        f"were counted, {found['values_per_s']['alone']:.0f} with the shown machine alone. A value is "
                        "a message with a whole array.")
            + table(["what", ""], [
                ["`servo-machine`: from its start until its last machine is live", duration(found["machines_up_s"])],
                [f"panel: from its start until its page has read the servo's setpoints, median of {len(starts)}",
                 duration(statistics.median(starts))],
                ["the same, quickest and slowest", f"{duration(min(starts))}, {duration(max(starts))}"],
                ["memory (resident) of the panel", f"{found['memory_mib']['panel']:.1f} MiB"],
                ["memory of the broker", f"{found['memory_mib']['broker']:.1f} MiB"],
                ["memory of `servo-machine`", f"{found['memory_mib']['machines']:.1f} MiB"]])
            + paragraph(f"Panel and `servo-machine` read a project that names all {size['machines']} machines. Shares "
                        f"of one processor over {found['seconds']:.0f} s:")
            + table(["on the broker", "panel", "broker", "`servo-machine`", "all else on the computer"], [
                share_row("all machines", whole), share_row("the shown machine alone", alone),
                ["ratio"] + [ratio(whole[who], alone[who]) if alone[who] > 0 else "" for who in
                             ("panel", "broker", "machines")] + [""]])
            + paragraph("A panel follows the machine that it shows. Somebody who followed all of them would spend "
                        f"{found['following_all_percent']:.1f} % of a processor on that alone, without showing "
                        "anything.")
            + paragraph(f"From a write to its answer, {len(writes)} writes of 20 setpoints one after the other, to "
                        "each servo of a machine in turn, while all of that runs:")
            + pictures(results, ["writes"])
            + table(["not longer than", "half", "90 %", "99 %", "99.9 %", "all"], [
                percentiles("a write until its answer", writes),
                percentiles("floor: a message of 300 bytes to the broker and back", echoes)])
            + paragraph("Half of the writes take "
                        f"{ratio(percentile(writes, 0.5), percentile(echoes, 0.5))} times as long as such a message. "
                        "The panel gives a machine 750 ms."))


HISTOGRAMS = {
    "tickUnchanged": "A refresh of a diagnosis page, nothing changed",
    "tickChanging": "A refresh of a diagnosis page, every value changed and painted",
    "openPageAgain": "From the touch to the painted page",
    "confirm": "From the touch of the key to the end of a confirm, painted",
    "writes": "From a write to its answer, through a broker",
}


def samples(results, name):
    return results.line["writes_ms"] if name == "writes" else results.samples[name]


def picture_file(name):
    return f"measurements-{re.sub('([A-Z])', lambda letter: '-' + letter[0].lower(), name)}.svg"


def pictures(_results, names):
    return "".join(f"![{HISTOGRAMS[name]}](images/{picture_file(name)})\n\n" for name in names)


def limits(_results):
    return "## What this does not show\n\n" + "".join(bullet(line) for line in (
        "A screen: the panel paints into memory. What a display server, a graphics driver and a real screen add is not "
        "there, and neither is the time that a finger stays on a key.",
        "A cold disk: whatever the programs read was in the system's cache. A program that is started for the first "
        "time after the computer takes longer.",
        "A panel PC: its processor may be several times slower than this one.",
        "A network, encrypted connections, slow controllers and other panels. Broker, machines, panel and the program "
        "that measures share the processors of one computer, and the simulated machines are no real ones.",
        "Other projects: larger pictures, more servos and more definitions take longer.",
        "Memory over days. The figures are of minutes.",
        "Another panel. A start stands beside an empty window only, and a confirm beside the pixels that it paints: what "
        "reads a project, or takes values back from a machine, asks each time and tells the operator of it, does "
        "as much as this one, and a window of labels that pretended to would measure nothing.",
        "What one library does to the next: `QSettings` leaves the vector registers in a state in which copying texts "
        "takes twice as long in that thread. They are cleared before each measurement of INI files."))


def quote(results):
    unchanged = results.median("tickUnchanged/trace:0/diagnosis:1")
    rows = [
        ["from the start of the program to the painted menu", duration(results.median("processToMenu"))],
        ["from a touch to the painted page", duration(results.median("openPageAgain/trace:0"))],
        ["a refresh of a diagnosis page, nothing changed, nothing painted", duration(unchanged)],
        ["the same every tenth of a second, every value changed and painted",
         f"{three_digits(statistics.median(core_percents(results)))} % of a core"],
        ["2000 definitions read; `mdb-export`, a whole process",
         f"{duration(results.median('panelReads/jet:4/rows:2000'))}; "
         f"{duration(results.median('mdbExportExports/jet:4/rows:2000'))}"],
        ["a write to a machine behind a broker until its answer, half and 99 % of them",
         f"{duration(percentile(results.line['writes_ms'], 0.5) / 1000)}, "
         f"{duration(percentile(results.line['writes_ms'], 0.99) / 1000)}"],
    ]
    return f"\n{computer()}, {time.strftime('%F')}:\n\n" + table(["what", "median"], rows)


def write(results, root):
    for name, title in HISTOGRAMS.items():
        (root / PICTURES / picture_file(name)).write_text(svg(title, samples(results, name)), encoding="utf-8")
    parts = [introduction, targets, panel, menu, scaling, ini, definitions, library, line, limits]
    (root / PAGE).write_text("".join(part(results) for part in parts), encoding="utf-8")
    readme = root / "README.md"
    text, count = QUOTE.subn(lambda marks: marks[1] + quote(results) + marks[2], readme.read_text(encoding="utf-8"))
    if count != 1:
        raise ValueError("README.md has no place for the figures")
    readme.write_text(text, encoding="utf-8")

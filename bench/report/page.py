"""The page of the documentation, its pictures, and the lines of the README that quote it."""

import os
import platform
import re
import subprocess
import tempfile
import time

import data_sections
import limits
import line_section
import panel_sections
from figures import REPETITIONS, duration, percentile, ratio, three_digits
from histogram import HISTOGRAMS, picture_file, svg
from markdown import bullets, paragraph, table

PAGE = "docs/measurements.md"
PICTURES = "docs/images"
VERSION = re.compile(r"^    VERSION (\S+)$", re.MULTILINE)
QUOTE = re.compile(r"(<!-- written by \./measure -->\n).*?(<!-- end -->\n)", re.DOTALL)


def output(*words):
    try:
        return subprocess.run(words, capture_output=True, text=True, check=True).stdout
    except (OSError, subprocess.CalledProcessError):
        return ""


def version(package):
    return output("dpkg-query", "-W", "-f=${Version}", package) or "of unknown version"


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


def measured(root):
    """Which state of the project this is."""
    number = VERSION.search((root / "CMakeLists.txt").read_text(encoding="utf-8"))[1]
    commit = output("git", "-C", str(root), "rev-parse", "--short=12", "HEAD").strip()
    if not commit:
        return f"version {number}"
    changed = output("git", "-C", str(root), "status", "--porcelain", "--untracked-files=no")
    return f"version {number}, commit {commit}" + (" with changes" if changed else "")


def file_system():
    """Of the folder that all files lie in."""
    kind = (output("df", "--output=fstype", tempfile.gettempdir()).split() or ["", "unknown"])[-1]
    return "in memory (tmpfs), where to sync costs nothing" if kind == "tmpfs" else f"on a disk with {kind}"


def introduction(results, project):
    versions = results.line["versions"]
    libraries = {"Google Benchmark": "libbenchmark-dev", "inih": "libinih-dev", "SimpleIni": "libsimpleini-dev",
                 "pixman": "libpixman-1-dev", "mdbtools": "mdbtools", "Mosquitto": "mosquitto"}
    others = max(run["others"] for run in results.runs.values())
    minutes = sum(run["seconds"] for run in results.runs.values()) / 60
    own, other = (results.median(f"load{who}/entries:100") for who in ("Library", "SimpleIni"))
    return "# Measurements\n\n" + paragraph(
        f"Written by `./measure` on {time.strftime('%F')}, from one run of {minutes:.0f} minutes, of {project}.",
        computer() + f", files {file_system()};",
        f"Qt {versions['Qt']}, g++ {versions['g++']}, optimised;",
        ", ".join(f"{name} {version(package)}" for name, package in libraries.items()) + ".",
        f"Meanwhile everything else on the computer took at most {others:.0f} % of a processor.",
    ) + paragraph(
        "**How to read the tables.** The number in brackets behind a time is that time divided by the first time of its "
        f"row, which is this project's. For example, an INI file of 100 entries is loaded once more by the library in "
        f"{duration(own)}, by SimpleIni in {duration(other)} ({ratio(other, own)}): SimpleIni takes "
        f"{ratio(other, own)} times as long. Below 1 the other one is the quicker. A floor is the least of the work and nothing else, such as reading the bytes of "
        "the file at once: who does the whole does this too. Its number says what part of this project's time that "
        "least takes: 0.1 is a tenth. A picture shows how often each time was taken, on a logarithmic axis; its highest "
        "bar is as high as the picture, however many times that are.",
    ) + paragraph(
        f"**What a time is.** Everything but the line at the end was measured in {REPETITIONS} rounds, in random order. Of "
        "the panel and its menu each start, each touch and each refresh was measured by itself, and a time is the median of all of them. What is "
        "read, looked up or scaled, and the library by itself, goes on many times in a round, and a time is the median of "
        "the rounds' means.",
    ) + paragraph(
        "**The panel** paints into memory, at 1280 x 1024 pixels, with the demonstration project, and keeps a journal of "
        "what it writes to its machine unless something else is said. Within the program of the measurement the machine "
        "stands still, so that nothing changes but what the measurement changes. A trace is a record of everything "
        "that passes between the library and its host; engineers switch it on to find a fault, and operators do without.")


def not_shown(_results):
    return "## What this does not show\n\n" + bullets((
        "A screen: the panel paints into memory. What a display server, a graphics driver and a real screen add is not "
        "there, and neither is the time that a finger stays on a key.",
        "A cold disk: whatever the programs read was in the system's cache. A program that is started for the first "
        "time after the computer takes longer, and longer still on the first start of an installation.",
        "A slow disk: a confirm waits until its lines of the journal are on the disk, and so does who writes "
        "definitions back. A memory card may take many times as long as the disk here.",
        "All that a panel does in a second: the share of a core that refreshes take is theirs alone. The clock in the header, "
        "the recorder of trends and a simulated machine were at rest meanwhile; what all of it takes together is told "
        "of the line, whose shown values change each second.",
        "A panel PC: its processor may be several times slower than this one.",
        "A network, encrypted connections, slow controllers and other panels. Broker, machines, panel and the program "
        "that measures share the processors of one computer, and the simulated machines are no real ones.",
        "Other projects: larger pictures, more servos and more definitions take longer.",
        "Memory over days. The figures are of minutes.",
        "Another panel. A start stands beside an empty window only, and a confirm beside the pixels that it paints and "
        "the lines that it keeps: what reads a project, or takes values back from a machine, asks each time and tells the "
        "operator of it, does as much as this one, and a window of labels that pretended to would measure nothing.",
        "What one library does to the next: `QSettings` leaves the vector registers in a state in which copying texts "
        "takes twice as long in that thread. They are cleared before each measurement of INI files."))


def quote(results):
    def single(what, name, called):
        taken = results.singles(name)
        return [what, duration(percentile(taken, 0.5)), f"{duration(max(taken))}, of {len(taken):,} {called}"]

    def mean(what, name):
        figure = results.figures[name]
        return [what, duration(figure.median), f"{duration(max(figure.seconds))}, of {len(figure.seconds)} rounds"]

    percents = limits.core_percents(results)
    writes = results.line["writes_ms"]
    rows = [
        single("from the start of the program to the painted menu", "processToMenu", "starts"),
        single("from the first touch of a program just started to the painted page", "firstTouch", "touches"),
        single("from any other touch to the painted page", "openPageAgain/trace:0", "touches"),
        single("a refresh of a diagnosis page, nothing changed, nothing painted", limits.UNCHANGED, "refreshes"),
        ["the same every tenth of a second, every value changed and painted",
         f"{three_digits(percentile(percents, 0.5))} % of a core", f"{three_digits(max(percents))} %, of {len(percents)} rounds"],
        mean("2000 definitions printed, a whole process: `servo-defs export`", "servoDefsExports/jet:4/rows:2000"),
        mean("the same: `mdb-export`", "mdbExportExports/jet:4/rows:2000"),
        ["a write to a machine behind a broker until its answer", duration(percentile(writes, 0.5) / 1000),
         f"{duration(max(writes) / 1000)}, of {len(writes):,} writes; 99 % of them: "
         f"{duration(percentile(writes, 0.99) / 1000)}"],
    ]
    return f"\n{computer()}, {time.strftime('%F')}:\n\n" + table(["what", "median", "slowest"], rows)


def write(results, root):
    first = introduction(results, measured(root))
    for old in (root / PICTURES).glob("measurements-*.svg"):
        old.unlink()
    for name in HISTOGRAMS:
        (root / PICTURES / picture_file(name)).write_text(svg(name, results), encoding="utf-8")
    parts = [limits.section, panel_sections.panel, panel_sections.menu, panel_sections.scaling,
             data_sections.ini, data_sections.definitions, panel_sections.library, line_section.line, not_shown]
    (root / PAGE).write_text(first + "".join(part(results) for part in parts), encoding="utf-8")
    readme = root / "README.md"
    text, count = QUOTE.subn(lambda marks: marks[1] + quote(results) + marks[2], readme.read_text(encoding="utf-8"))
    if count != 1:
        raise ValueError("README.md has no place for the figures")
    readme.write_text(text, encoding="utf-8")

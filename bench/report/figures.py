"""What the programs have measured, by the names of the benchmarks."""

import dataclasses
import json
import math
import re
import statistics

REPETITIONS = 5  # of each benchmark
SECONDS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}


@dataclasses.dataclass
class Figure:
    """One benchmark: seconds of an iteration and what else it counts in one, each for each repetition."""

    seconds: list
    counters: dict

    @property
    def median(self):
        return statistics.median(self.seconds)

    def count(self, counter):
        return statistics.median(self.counters[counter])


@dataclasses.dataclass
class Results:
    figures: dict  # of the benchmarks: "loadLibrary/entries:100"
    samples: dict  # of the panel's benchmarks: what each iteration took by itself, milliseconds
    line: dict  # what line_measure has found
    runs: dict  # of each program: how long it took, and what others did meanwhile
    context: dict  # what the benchmark library knows of the computer

    def singles(self, name):
        """What each iteration took, in seconds."""
        return [milliseconds / 1000 for milliseconds in self.samples[name]]

    def median(self, name):
        """Of all iterations where each was measured by itself, otherwise of the means of the repetitions."""
        return percentile(self.singles(name), 0.5) if name in self.samples else self.figures[name].median


def plain_name(name):
    return re.sub(r"/(manual_time|real_time|iterations:\d+)", "", name)


def load(folder):
    results = Results({}, {}, {}, {}, {})
    for file in sorted(folder.glob("*.json")):
        content = json.loads(file.read_text(encoding="utf-8"))
        if file.stem in ("samples", "line", "runs"):
            setattr(results, file.stem, content)
            continue
        results.context = content["context"]
        known = {"real_time", "cpu_time", "iterations", "threads", "repetitions", "repetition_index",
                 "family_index", "per_family_instance_index"}
        for entry in content["benchmarks"]:
            if entry.get("error_occurred"):
                raise ValueError(f"{entry['name']}: {entry['error_message']}")
            if entry["run_type"] != "iteration":
                continue
            figure = results.figures.setdefault(plain_name(entry["name"]), Figure([], {}))
            figure.seconds.append(entry["real_time"] * SECONDS[entry["time_unit"]])
            for key, value in entry.items():
                if key not in known and isinstance(value, (int, float)):
                    figure.counters.setdefault(key, []).append(value)
    return results


def percentile(values, share):
    """The value below which this share of them is, 0 to 1."""
    place = math.ceil(share * len(values))
    return sorted(values)[min(max(place, 1), len(values)) - 1]


def three_digits(value):
    if value == 0:
        return "0"
    decimals = max(0, 2 - math.floor(math.log10(abs(value))))
    return f"{value:.{decimals}f}"


def in_unit(seconds, text):
    for unit, factor in (("s", 1), ("ms", 1e3), ("µs", 1e6)):
        if seconds * factor >= 0.9999:
            return f"{text(seconds * factor)} {unit}"
    return f"{text(seconds * 1e9)} ns"


def duration(seconds):
    """With the unit that suits it and three digits."""
    return in_unit(seconds, three_digits)


def round_duration(seconds):
    """Of a round number, which has no digits to spare: 50 ms."""
    return in_unit(seconds, lambda value: f"{value:.6g}")


def ratio(one, other):
    return three_digits(one / other) if one / other >= 0.001 else "below 0.001"

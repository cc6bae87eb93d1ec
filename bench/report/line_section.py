"""What the page tells of a whole line on a broker."""

import statistics

from figures import duration, percentile, ratio, three_digits
from histogram import shown
from markdown import paragraph, table

WHO = ("panel", "broker", "machines", "others")


def shares(results):
    """Processor shares; a ratio only where they differ more than each by itself does."""
    measured = results.line["shares_percent"]
    # What all others do is what is left, and may come out a little less than nothing.
    values = {which: {who: [max(0.0, share[who]) for share in measured[which]] for who in WHO}
              for which in ("all", "alone")}

    def row(what, which):
        return [what] + [f"{statistics.median(values[which][who]):.2f} % "
                         f"({min(values[which][who]):.2f} to {max(values[which][who]):.2f})" for who in WHO]

    def compared(who):
        whole, alone = values["all"][who], values["alone"][who]
        if max(alone) < min(whole) or max(whole) < min(alone):
            lower, higher = sorted((statistics.median(whole), statistics.median(alone)))
            return f"{three_digits(higher / lower)} times the other" if lower > 0 else ""
        return "not known"

    return table(["on the broker", "panel", "broker", "`servo-machine`", "all else on the computer"], [
        row("all machines", "all"), row("the shown machine alone", "alone"),
        ["the greater of the two is"] + [compared(who) for who in WHO[:-1]] + [""]])


def percentiles(what, values):
    return [what] + [duration(percentile(values, share) / 1000) for share in (0.5, 0.9, 0.99, 0.999, 1.0)]


def line(results):
    found = results.line
    size = found["size"]
    starts, writes, echoes = found["panel_starts_s"], found["writes_ms"], found["echoes_ms"]
    times = len(found["shares_percent"]["all"])
    return (f"## A line of {size['machines']} machines with {size['servos']} servos each\n\n"
            + paragraph("One broker on a socket file, all machines in one `servo-machine` with a connection for each, "
                        "one `servo-panel` without a screen on the page of a servo.",
                        f"{size['variables']} process variables; of each servo the 40 values of both diagnosis pages "
                        f"change every {size['period_ms']} ms: {found['values_per_s']['all']:.0f} values in a second "
                        f"were counted, {found['values_per_s']['alone']:.0f} with the shown machine alone. A value is "
                        "a message with a whole array. The panel writes a trace here, in which the measurement sees "
                        "what it has read, and keeps no journal.")
            + table(["what", ""], [
                ["`servo-machine`: from its start until its last machine is live, once", duration(found["machines_up_s"])],
                [f"panel: from its start until its page has read the servo's setpoints, median of {len(starts)}",
                 duration(statistics.median(starts))],
                ["the same, quickest and slowest", f"{duration(min(starts))}, {duration(max(starts))}"],
                ["memory (resident) of the panel", f"{found['memory_mib']['panel']:.1f} MiB"],
                ["memory of the broker", f"{found['memory_mib']['broker']:.1f} MiB"],
                ["memory of `servo-machine`", f"{found['memory_mib']['machines']:.1f} MiB"]])
            + paragraph(f"Panel and `servo-machine` read a project that names all {size['machines']} machines. Shares "
                        f"of one processor, each over {found['seconds']:.0f} s, the median of {times} and in brackets the "
                        "lowest and the highest. Where these overlap it is not known which of the two is the greater:")
            + shares(results)
            + paragraph("A panel follows the machine that it shows. Somebody who followed all of them would spend "
                        f"{found['following_all_percent']:.1f} % of a processor on that alone, without showing "
                        "anything.")
            + paragraph(f"From a write to its answer, {len(writes)} writes of 20 setpoints one after the other, to "
                        "each servo of a machine in turn, while all of that runs. A command goes through the broker to the "
                        "machine, which judges it and sends the new value and the answer back through the broker, all in "
                        "JSON; the floor is one message to the broker and back, of as many bytes as a command has:")
            + shown(["writes"])
            + table(["not longer than", "half", "90 %", "99 %", "99.9 %", "all"], [
                percentiles("a write until its answer", writes),
                percentiles("floor: a message of 300 bytes to the broker and back", echoes)])
            + paragraph("Half of the writes take "
                        f"{ratio(percentile(writes, 0.5), percentile(echoes, 0.5))} times as long as such a message. "
                        "The panel gives a machine 750 ms."))

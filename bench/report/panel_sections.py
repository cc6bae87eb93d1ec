"""What the page tells of the panel: starts, pages, refreshes, its menu and its pictures."""

from figures import duration
from histogram import shown
from markdown import beside, paragraph, table


def with_trace(results, what, name, arguments="", floor=None):
    plain, traced = (results.median(f"{name}/trace:{trace}{arguments}") for trace in (0, 1))
    return [what, duration(plain), beside(traced, plain), "" if floor is None else beside(floor, plain)]


def starts(results):
    floor = results.median("processToEmptyWindow")
    return table(["process", "panel", "floor: a Qt program to its painted empty window"], [
        [what, duration(results.median(name)), beside(floor, results.median(name))] for what, name in (
            ("to the painted menu", "processToMenu"),
            ("to the painted menu, no picture scaled yet", "processToFirstMenu"),
            ("to the painted page", "processToPage"))])


def within(results):
    pixels, journal = results.median("confirmFloor"), results.median("journalFloor")
    rows = [
        with_trace(results, "panel made, menu painted", "startToMenu", floor=results.median("floorOfMemory")),
        with_trace(results, "panel made, page painted", "startToPage", floor=results.median("openPageFloor")),
        with_trace(results, "page after a touch, the panel's first", "openPageFirst",
                   floor=results.median("openPageFloor")),
        with_trace(results, "page after a touch, any other time", "openPageAgain",
                   floor=results.median("openPageFloor")),
        with_trace(results, "confirm", "confirm", "/journal:1", floor=pixels + journal),
        with_trace(results, "confirm, no journal kept", "confirm", "/journal:0", floor=pixels),
    ]
    for page, what in enumerate(("parameters", "diagnosis")):
        for values, name, floor in (("nothing changed", "tickUnchanged", "tickFloor"),
                                    ("every value changed", "tickChanging", "tickPaintFloor")):
            rows.append(with_trace(results, f"refresh, {what}, {values}", name, f"/diagnosis:{page}",
                                   results.median(f"{floor}/diagnosis:{page}")))
    return table(["what", "without a trace", "with a trace", "floor"], rows)


def labels(results):
    rows = []
    for what, ours, plain in (
            ("page opened, any time but the first", "openPageAgain/trace:0", "plainOpening"),
            ("refresh, parameters, nothing changed", "tickUnchanged/trace:0/diagnosis:0", "plainParameters/changing:0"),
            ("refresh, parameters, every value changed", "tickChanging/trace:0/diagnosis:0",
             "plainParameters/changing:1"),
            ("refresh, diagnosis, nothing changed", "tickUnchanged/trace:0/diagnosis:1", "plainDiagnosis/changing:0"),
            ("refresh, diagnosis, every value changed", "tickChanging/trace:0/diagnosis:1",
             "plainDiagnosis/changing:1")):
        own = results.median(ours)
        rows.append([what, duration(own), f"{results.figures[plain].count('labels'):.0f}",
                     beside(results.median(plain), own)])
    return table(["what", "panel", "labels", "time of the labels"], rows)


def panel(results):
    journal = results.figures["journalFloor"]
    return ("## The panel\n\n"
            + paragraph("A whole process with its journal, as `./run` starts it, from its start until the last pixel is "
                        "there and it has ended:")
            + starts(results)
            + paragraph("Within a running program, each until the last pixel is painted. The floor of a refresh that "
                        "brings nothing new: its variables are read and compared. The floor of all else: as many "
                        "pixels as it paints are filled, of a panel just made those of its menu or page after a touch. "
                        "Its first page is not the program's first; that one is among the limits. With a confirm come "
                        f"{journal.count('lines'):.0f} lines in the journal, {journal.count('bytes'):,.0f} bytes: for "
                        "each variable what is going to be written, on the disk before it is sent, and how it ended, on "
                        "the disk before the panel goes on. The floor adds as many bytes to a file and syncs it once.")
            + within(results)
            + paragraph("Beside a plain window of `QLabel`s that are given texts, and shown where a page is opened: as "
                        "many as the panel paints widgets there. They read no variables, have no limits and no captions "
                        "that follow a language:")
            + labels(results)
            + shown(["tickUnchanged", "tickChanging", "processToMenu", "firstTouch", "openPageAgain", "confirm"]))


def menu(results):
    rows = []
    for what, name in (("from the sources, scaled and kept", "Sources"), ("from the copies on disk", "Copies"),
                       ("from memory, after a touch", "Memory")):
        ours = results.median(f"menuFrom{name}")
        rows.append([what, duration(ours), beside(results.median(f"plainFrom{name}"), ours),
                     beside(results.median(f"floorOf{name}"), ours)])
    return ("## A page of the menu\n\n"
            + paragraph("Eight keys with pictures, painted. Beside a window that anybody would put together with eight "
                        "`QLabel`s. The floor: the bytes of the files are read, each file at once; from memory, as many "
                        "pixels as the panel paints are filled. The panel's figures have the whole screen in them: "
                        "heading, footer, captions; those from files also the making of the menu, but of the panel around "
                        "it as little as of the window around the labels. Only the panel keeps what it has scaled.")
            + table(["pictures", "panel", "eight labels", "floor"], rows))


def scaling(results):
    def row(width, *others):
        own = results.median(f"scaledByPanel/panel:{width}")
        return [f"for the panel of {width} pixels", duration(own)] + [
            beside(results.median(f"{other}/panel:{width}"), own) if other else "" for other in others]

    return ("## A picture scaled to a key\n\n"
            + paragraph("The picture of a servo, from the canvas that it is drawn on to the size of a key, each pixel "
                        "averaged, on either panel from that panel's picture. The panel scales with the same `QImage` that "
                        "stands beside it, which shares the work among the processors, and draws the result onto the key "
                        "afterwards. pixman works on one processor, with box filters that were made before. On the panel of "
                        "1280 pixels the canvas is twice as large as the key, and pixman's bilinear filter, the quicker one, "
                        "makes the same picture. The floor touches each pixel of the canvas once.")
            + table(["", "panel", "`QImage`, smooth", "pixman, box", "pixman, bilinear", "floor"],
                    [row(1280, "scaledByQImage", "scaledByPixman", "interpolatedByPixman", "scalingFloor"),
                     row(800, "scaledByQImage", "scaledByPixman", "", "scalingFloor")]))


def library(results):
    rows = [with_trace(results, what, name, arguments,
                       None if floor is None else results.median(f"variablesAlone/{floor}"))
            for what, name, arguments, floor in (
                ("a host and a project, nothing shown", "projectAlone", "", None),
                ("from nothing to the menu", "startToMenuAlone", "", "startToMenuAlone"),
                ("from nothing to a page", "startToPageAlone", "", "startToPageAlone"),
                ("a page opened and left", "openPage", "", "openPage"),
                ("refresh, parameters", "tick", "/diagnosis:0", "tickOfParameters"),
                ("refresh, diagnosis", "tick", "/diagnosis:1", "tickOfDiagnosis"),
                ("an input and a confirm", "confirmAlone", "", "confirmAlone"))]
    return ("## The library by itself\n\n"
            + paragraph("On a host in memory that draws nothing. The floor: the same variables are read and compared, "
                        "and written where the library writes, as often as the trace tells. It knows no files, no texts "
                        "and no forms, which the library asks for and fills, so above all the starts and the page have "
                        "more to do than that. Nothing else speaks to such a host, so there is nobody to compare with.")
            + table(["what", "without a trace", "with a trace", "floor"], rows))

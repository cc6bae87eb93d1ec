"""What the page tells of files: INI files and definitions."""

from limits import ENTRIES, INI_PEERS
from markdown import listed, paragraph, side_by_side


def slower_look_ups(results):
    """Names the peers that look up more quickly, and says nothing when there are none."""
    sentences = []
    for entries in ENTRIES:
        def spent(what, who, ending=f"/entries:{entries}"):
            return results.median(f"{what}{who}{ending}")

        own = spent("lookUp", "Library")
        quicker = [who for who in INI_PEERS if spent("lookUp", who) < own]
        if not quicker:
            continue
        sentences.append(f"Among {entries:,} entries the library looks up more slowly than "
                         f"{listed([INI_PEERS[who] for who in quicker])}.")
        for who in quicker:
            # Slower at loading, quicker at each look-up.
            lead = spent("load", who) - spent("load", "Library")
            if lead > 0:
                sentences.append(f"Loading included, {INI_PEERS[who]} is ahead from "
                                 f"{lead / (own - spent('lookUp', who)):,.0f} look-ups on.")
    return " ".join(sentences + ["The demonstration project's largest INI file has 63 entries."] if sentences else [])


def ini(results):
    sizes = [(f"{entries:,} entries", f"/entries:{entries}") for entries in ENTRIES]
    return ("## INI files\n\n"
            + paragraph("Ten entries a section. Loaded from the system's cache; the floor opens the file and reads its "
                        "bytes at once, without looking at them:")
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
            + paragraph("Whole processes that print the table. The floor is a process that does nothing:")
            + side_by_side(results, sizes, ("`servo-defs export`", "servoDefsExports"),
                           [("`mdb-export`", "mdbExportExports"), ("floor", "anEmptyProgramStarts")])
            + paragraph("The panel takes every value of every row, within its process. The floor opens the file and reads "
                        "its bytes at once, without looking at them:")
            + side_by_side(results, sizes, ("panel reads", "panelReads"), [("floor", "bytesAreRead")])
            + paragraph("Written back as after a confirm, every row updated and one value changed: copy, sync, read "
                        "back, compare, rename. Nobody else's tool writes these files here, so it stands beside the floor of "
                        "a file of that size written and synced:")
            + side_by_side(results, sizes, ("panel writes back", "panelWritesBack"), [("floor", "bytesAreWritten")])
            + paragraph("The 42 fields of a page looked up among 2000 definitions, beside a `std::map` made anew from "
                        "the same rows, and beside a walk over the rows for each field that compares a number. The library "
                        "walks over the rows too, because of several that fit the last one counts:")
            + side_by_side(results, [("42 fields", "")], ("library", "lookUpOfPage"),
                           [("`std::map`", "lookUpByMap"), ("floor", "lookUpFloor")]))

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
            lead = spent("load", who) - spent("load", "LibraryFirst")
            if lead > 0:
                sentences.append(f"Loading from nothing included, {INI_PEERS[who]} is ahead from "
                                 f"{lead / (own - spent('lookUp', who)):,.0f} look-ups on.")
    return " ".join(sentences + ["The demonstration project's largest INI file has 63 entries."] if sentences else [])


def ini(results):
    sizes = [(f"{entries:,} entries", f"/entries:{entries}") for entries in ENTRIES]
    return ("## INI files\n\n"
            + paragraph("Ten entries a section. Two files of the same names are loaded in turn from the system's cache, and "
                        "every value has another length than in the other file. The panel loads into one store, which it "
                        "keeps: once more. From nothing, and all of it given back, is what the others do. The floor opens "
                        "the file and reads its bytes at once, without looking at them:")
            + side_by_side(results, sizes, ("library, once more", "loadLibrary"),
                           [("library, from nothing", "loadLibraryFirst"), ("inih", "loadInih"), ("SimpleIni", "loadSimpleIni"), ("`QSettings`", "loadQSettings"),
                            ("floor", "loadFloor")])
            + paragraph("One look-up, of entries all over the file, beside a plain walk over the names of the sections "
                        "and of the entries of one, compared byte by byte. The names that are asked for are there before, "
                        "each as its reader takes it, and each value is handed out as its reader does: a `std::string`, "
                        "by SimpleIni a pointer, by `QSettings` a `QString`. The walk is no floor: whoever sorts or "
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
                        "the same rows, and beside a walk over the rows for each field that compares a number only. The "
                        "library walks over the rows too, because of several that fit the last one counts. Neither is a "
                        "floor: an index that was made once does with less.")
            + side_by_side(results, [("42 fields", "")], ("library", "lookUpOfPage"),
                           [("`std::map`", "lookUpByMap"), ("walk", "walkOfPage")]))

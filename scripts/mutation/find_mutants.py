"""Finds the places where a source can be broken on purpose, and writes it anew with all mutants in it."""

import collections
import dataclasses
import re

from clang import cindex
from clang.cindex import CursorKind as Kind

COMPARISONS = {"<": "less", "<=": "lessEqual", ">": "greater", ">=": "greaterEqual"}
EQUALITIES = {"==": "equal", "!=": "unequal"}
ARITHMETIC = {"+": "plus", "-": "minus", "*": "times", "/": "over", "%": "rest", "&": "both", "|": "either",
              "<<": "left", ">>": "right"}
OTHER = {"<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"), "==": ("!=",), "!=": ("==",),
         "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "%": ("*",), "&": ("|",), "|": ("&",), "<<": (">>",),
         ">>": ("<<",)}
# What stands between an operand and its operator.
GAP = re.compile(rb"\s|//[^\n]*\n|/\*.*?\*/", re.S)
STATEMENTS = (Kind.CALL_EXPR, Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR, Kind.UNARY_OPERATOR)
FUNCTIONS = (Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.CONVERSION_FUNCTION, Kind.FUNCTION_TEMPLATE)
ASSIGNMENT = re.compile(rb"([\w.\[\]\x80-\xff]+) = ([-\w.:\[\]\x80-\xff]+)")
# In front of an array's size and first index.
ARRAY = re.compile(rb"\b(CheckedArray|GrowingArray|array)<[^;>]*$")
NOT = re.compile(rb"!(?!=)")  # a != b may be made of a == b
JUMPS = (Kind.CONTINUE_STMT, Kind.BREAK_STMT)
OTHER_AXIS = {"X": "Y", "Y": "X", "x": "y", "y": "x"}
# A length or a factor of one direction, such as FaktorX, that is neither given a value nor called here.
AXIS = re.compile(r"(.*[a-z])([XY])|(t)([xy])")
GIVEN = re.compile(rb"\s*=(?!=)|\(")
CASES = (Kind.CASE_STMT, Kind.DEFAULT_STMT)
TRAP = re.compile(rb"trap(?:\.(condition|decision))?\(")
# A text as it is written in a source, and its single characters. Several that stand side by side are one text.
LITERAL = re.compile(r'("(?:.*")?)((?:[^"\\]|\\.)*)("(?:sv)?)', re.S)
CHARACTER = re.compile(r"\\x[0-9a-fA-F]+|\\[0-7]{1,3}|\\.|.")


def misspelt(literal):
    """The text with its last character changed, with one if it is empty; nothing for wide, raw and other special texts."""
    found = LITERAL.fullmatch(literal)
    if found is None:
        return None
    front, content, behind = found.groups()
    characters = CHARACTER.findall(content)
    last = characters.pop() if characters else ""
    return f"{front}{''.join(characters)}{'y' if last in ('x', 'X') else 'x'}{behind}"


def is_huge(literal):
    """Whether one more is the same number."""
    value = float.fromhex(literal) if literal[:2] in ("0x", "0X") else float(literal.replace("'", "").rstrip("fFlL"))
    return value + 1 == value


@dataclasses.dataclass(frozen=True)
class Mutant:
    """One way to break one place."""
    number: int
    file: str  # from the project's folder
    line: int
    kind: str
    text: str  # of the place, in one line
    change: str


@dataclasses.dataclass(frozen=True)
class Place:
    """A part of a source, with what to write before and behind it for the number of its first mutant."""
    start: int
    end: int
    kind: str
    changes: tuple
    before: str  # with {} for the number
    behind: str
    cut: tuple = ()  # (start, end, text): what is written instead of an operator
    steps: tuple = ()  # (offset, text) for each further statement of a run
    same: tuple = ()  # changes that change nothing
    number: str = "{}"  # how the number is told within a constant


class Source:
    def __init__(self, path, name, unit):
        self.name = name
        self.data = path.read_bytes()
        self.path = str(path)
        self.places = []
        self.fixed = {}  # offsets of 'constexpr' that become 'const', and where that constant ends
        self.visit(unit.cursor, None)

    # -- the syntax tree

    def is_here(self, cursor):
        start = cursor.extent.start
        return start.file is not None and start.file.name == self.path

    def text(self, cursor):
        return self.data[cursor.extent.start.offset:cursor.extent.end.offset]

    def visit(self, cursor, parent):
        for child in cursor.get_children():
            if parent is None and not self.is_here(child):
                continue
            self.look(child, cursor)
            outside = self.in_constexpr
            self.in_constexpr = outside or self.is_constexpr(child)
            self.visit(child, cursor)
            self.in_constexpr = outside

    def is_constexpr(self, cursor):
        """Such functions may run when compiling, where no mutant can act, and when the program runs."""
        if cursor.kind not in FUNCTIONS or not self.is_here(cursor):
            return False
        head = self.data[cursor.extent.start.offset:cursor.location.offset]
        return re.search(rb"\bconstexpr\b", head) is not None

    def look(self, cursor, parent):
        kind = cursor.kind
        if kind == Kind.STATIC_ASSERT:
            self.exclude(cursor)
        elif kind in (Kind.CASE_STMT, Kind.ENUM_CONSTANT_DECL):
            # What has to be known when compiling; of a case only its label.
            for inner in list(cursor.get_children())[:1]:
                self.exclude(inner)
        elif kind in (Kind.TEMPLATE_TYPE_PARAMETER, Kind.TEMPLATE_NON_TYPE_PARAMETER):
            self.exclude(cursor)
        elif kind in (Kind.VAR_DECL, Kind.FIELD_DECL):
            for inner in cursor.get_children():
                if self.is_size(inner, cursor):
                    self.exclude(inner)
        if not self.is_here(cursor) or self.is_excluded(cursor):
            return
        if kind == Kind.VAR_DECL:
            self.constant(cursor)
        elif kind in (Kind.INTEGER_LITERAL, Kind.FLOATING_LITERAL, Kind.CHARACTER_LITERAL):
            self.number(cursor)
        elif kind == Kind.STRING_LITERAL:
            self.literal(cursor)
        elif kind == Kind.CXX_BOOL_LITERAL_EXPR:
            self.wrap(cursor, "constant", ("not " + self.text(cursor).decode(),), "(mutants::acts({}) != ", ")")
        elif kind == Kind.IF_STMT:
            self.condition(list(cursor.get_children())[0])
        elif kind == Kind.SWITCH_STMT:
            self.labels(cursor)
        elif kind == Kind.CONDITIONAL_OPERATOR:
            self.condition(list(cursor.get_children())[0])
        elif kind == Kind.UNARY_OPERATOR and NOT.match(self.text(cursor)) and parent.kind != Kind.IF_STMT:
            self.wrap(cursor, "condition", ("without !",), "(mutants::acts({}) != ", ")")
        elif kind in (Kind.MEMBER_REF_EXPR, Kind.DECL_REF_EXPR):
            self.axis(cursor)
        elif kind in (Kind.BINARY_OPERATOR, Kind.CALL_EXPR):
            self.operator(cursor)
            self.trapped(cursor)
        if kind == Kind.COMPOUND_STMT:
            self.block(cursor)

    def is_size(self, cursor, array):
        """Whether this stands between the brackets behind the array's name."""
        name = array.location.offset + len(array.spelling.encode())
        return self.data[name:cursor.extent.start.offset].strip() == b"["

    excluded = ()
    in_constexpr = False

    def exclude(self, cursor):
        self.excluded = (*self.excluded, (cursor.extent.start.offset, cursor.extent.end.offset))

    def is_excluded(self, cursor):
        start = cursor.extent.start.offset
        return any(low <= start < high for low, high in self.excluded)

    def wrap(self, cursor, kind, changes, before, behind, **more):
        extent = cursor.extent
        if extent.end.file is None or extent.end.file.name != self.path or extent.end.offset <= extent.start.offset:
            return
        self.add(extent.start.offset, extent.end.offset, kind, changes, before, behind, **more)

    def add(self, *what, **more):
        self.places.append(Place(*what, **more, number="{}" if self.in_constexpr else "(&mutants::run() ? {} : 0)"))

    def constant(self, cursor):
        start = self.data.rfind(b"\n", 0, cursor.extent.start.offset) + 1
        head = self.data[start:cursor.location.offset]
        found = re.search(rb"\bconstexpr\b", head)
        if found:
            self.fixed[start + found.start()] = cursor.extent.end.offset

    def number(self, cursor):
        text = self.text(cursor)
        if not text[:1].isdigit() and text[:1] not in (b".", b"'"):
            return
        if cursor.kind == Kind.FLOATING_LITERAL and is_huge(text.decode()):
            return
        self.wrap(cursor, "constant", (text.decode() + " + 1",), "mutants::oneMore({}, ", ")")

    def literal(self, cursor):
        changed = misspelt(self.text(cursor).decode())
        if changed is not None:
            written = changed.replace("{", "{{").replace("}", "}}")
            self.wrap(cursor, "text", (f"becomes {changed}",), "mutants::text({}, ", f", {written})")

    def labels(self, cursor):
        """The numbers that a switch tells apart."""
        value, body = list(cursor.get_children())[-2:]
        found, cases = [], list(body.get_children())
        while cases:
            case = cases.pop(0)
            if case.kind == Kind.CASE_STMT:
                label, behind = list(case.get_children())
                found.append(self.text(label).decode())
                cases.insert(0, behind)
        if all(label.isdigit() for label in found):
            changes = tuple(f"case {label} becomes {label} + 1" for label in found)
            self.wrap(value, "constant", changes, "mutants::switched({}, ", f", {{{{{', '.join(found)}}}}})")

    def condition(self, cursor):
        if not cursor.kind.is_expression():
            return
        self.wrap(cursor, "condition", ("turned round",), "(mutants::acts({}) != static_cast<bool>(", "))")

    def operator(self, cursor):
        children = list(cursor.get_children())
        if cursor.kind == Kind.CALL_EXPR:
            children = [child for child in children if not child.spelling.startswith("operator")
                        or child.extent.end.offset - child.extent.start.offset > 3]
            if not cursor.spelling.startswith("operator"):
                return
        if len(children) != 2:
            return
        left, right = sorted(children, key=lambda child: child.extent.start.offset)
        if not (self.is_here(left) and self.is_here(right)):
            return
        begin, end = left.extent.end.offset, right.extent.start.offset
        sign = GAP.sub(b"", self.data[begin:end]).decode("utf-8", "replace")
        if sign in ("&&", "||"):
            before = "(mutants::acts({}) || static_cast<bool>(" if sign == "&&" else \
                "(!mutants::acts({}) && static_cast<bool>("
            for side in (left, right):
                self.wrap(side, "condition", (f"dropped from {sign}",), before, "))")
            return
        names = {**COMPARISONS, **EQUALITIES}
        if cursor.kind == Kind.BINARY_OPERATOR and not any("*" in one.type.spelling for one in (cursor, left, right)):
            names.update(ARITHMETIC)
        if sign not in names:
            return
        kind = "comparison" if sign in COMPARISONS or sign in EQUALITIES else "arithmetic"
        changes = tuple(f"{sign} becomes {other}" for other in OTHER[sign])
        self.wrap(cursor, kind, changes, "mutants::" + names[sign] + "({}, ", ")", cut=(begin, end, ", "))

    def axis(self, cursor):
        """Width taken for height: what belongs to the other direction, where there is such a thing."""
        extent = cursor.extent
        if GIVEN.match(self.data[extent.end.offset:extent.end.offset + 8]):
            return
        text = self.text(cursor).decode()
        name = AXIS.fullmatch(text)
        if name is None or not text.endswith(cursor.spelling):
            return
        front, end = (part for part in name.groups() if part is not None)
        other = front + OTHER_AXIS[end]
        if re.search(rb"\b" + other.split(".")[-1].encode() + rb"\b", self.data):
            self.wrap(cursor, "axis", (f"becomes {other}",), "mutants::other({}, ", f", {other})")

    def trapped(self, cursor):
        """What fails in the statement goes past its trap: what follows is lost with it, and others report it, or nobody."""
        call = TRAP.match(self.text(cursor))
        if cursor.kind == Kind.CALL_EXPR and call:
            start = cursor.extent.start.offset
            self.wrap(cursor, "trap", ("lets a failure through",), f"mutants::{(call[1] or b'statement').decode()}({{}}, ", "",
                      cut=(start + len("trap"), start + call.end(), ", "), same=() if self.calls(cursor) else (0,))

    @staticmethod
    def calls(trap):
        """Whether the statement in the trap calls anything; numbers that are kept or compared cannot fail."""
        statement = next((inner for inner in trap.walk_preorder() if inner.kind == Kind.COMPOUND_STMT), trap)
        return any(inner.kind == Kind.CALL_EXPR for inner in statement.walk_preorder())

    # -- statements

    def semicolon(self, cursor):
        """Behind the ; that ends a statement, None for anything else."""
        place = cursor.extent.end.offset
        while self.data[place:place + 1].isspace():
            place += 1
        return place + 1 if self.data[place:place + 1] == b";" else None

    def is_statement(self, cursor):
        if cursor.kind in STATEMENTS or cursor.kind == Kind.UNEXPOSED_EXPR:
            return self.is_here(cursor) and self.semicolon(cursor) is not None
        return False

    def block(self, cursor):
        run = []
        for child in list(cursor.get_children()) + [None]:
            while child is not None and child.kind in CASES:
                # The first of the statements for this case is a part of it.
                self.swaps(run)
                run = []
                child = list(child.get_children())[-1]
            if child is not None and self.is_statement(child):
                run.append(child)
                continue
            self.swaps(run)
            run = []
            if child is not None and child.kind in JUMPS:
                self.dropped(child)
            if child is not None and child.kind == Kind.RETURN_STMT and self.text(child) == b"return":
                self.dropped(child)
            self.bodies(child)

    def bodies(self, cursor):
        """Single statements without braces."""
        if cursor is None or cursor.kind not in (Kind.IF_STMT, Kind.FOR_STMT, Kind.CXX_FOR_RANGE_STMT, Kind.WHILE_STMT):
            return
        children = list(cursor.get_children())
        for child in children[1:] if cursor.kind != Kind.CXX_FOR_RANGE_STMT else children[-1:]:
            in_head = cursor.kind == Kind.FOR_STMT and child.extent != children[-1].extent
            is_jump = child.kind in JUMPS or (child.kind == Kind.RETURN_STMT and self.text(child) == b"return")
            if not in_head and (self.is_statement(child) or is_jump):
                self.dropped(child)
            self.bodies(child)

    def dropped(self, cursor):
        end = self.semicolon(cursor)
        if end is not None:
            self.add(cursor.extent.start.offset, end, "statement", ("dropped",), "{{ if (!mutants::acts({})) ", " }}")

    def independent(self, first, second):
        """Two plain assignments that have nothing to do with each other: their order is nothing to notice."""
        parts = [ASSIGNMENT.fullmatch(self.text(statement)) for statement in (first, second)]
        if not all(parts):
            return False
        (target, value), (other, other_value) = (part.groups() for part in parts)
        return target != other and target not in other_value and other not in value

    def swaps(self, run):
        for statement in run:
            self.dropped(statement)
        if len(run) < 2:
            return
        count = len(run)
        name = f"mutants_place_{run[0].extent.start.offset}"
        before = (f"for (int {name} = 0; {name} < {count}; ++{name}) "
                  f"switch (mutants::step({{}}, {count}, {name})) {{{{ case 0: ")
        steps = tuple((statement.extent.start.offset, f"break; case {i}: ")
                      for i, statement in enumerate(run[1:], 1))
        changes = tuple("swapped with the next one" for _ in range(count - 1))
        same = tuple(i for i in range(count - 1) if self.independent(run[i], run[i + 1]))
        self.add(run[0].extent.start.offset, self.semicolon(run[-1]), "order", changes, before, " break; }}", steps=steps,
                 same=same)

    def constant_around(self, place):
        """Where the constant begins whose value the place is part of."""
        for offset, end in self.fixed.items():
            if offset <= place < end:
                return offset
        return None

    def constants_at(self, line):
        """Lines on which constants begin that this line is part of."""
        return {self.line_of(offset) for offset, end in self.fixed.items()
                if self.line_of(offset) <= line <= self.line_of(end)}

    def is_compiled_in(self, place):
        """Whether the compiler works it out whatever is written there: then no mutant can act."""
        before = self.data[self.data.rfind(b"\n", 0, place.start) + 1:place.start]
        return place.kind != "text" and ARRAY.search(before) is not None

    def mutants(self, first, without_lines, kept_constants):
        """All mutants, numbered from `first`; the places with their numbers; how many numbers are taken; how many mutants
        of each kind are left out because they cannot be compiled (on these lines, or within constants on those lines) or cannot act."""
        made, used = [], []
        seen = set()
        number, left_out = first, collections.Counter()
        for place in self.places:
            key = (place.start, place.end, place.kind, place.before)
            if key in seen:
                continue
            seen.add(key)
            constant = self.constant_around(place.start)
            is_kept = constant is not None and self.line_of(constant) in kept_constants
            is_used = not is_kept and self.line_of(place.start) not in without_lines
            if is_used:
                used.append((place, place.number.format(number) if constant is not None else number))
            if is_used and not self.is_compiled_in(place):
                for i, change in enumerate(place.changes):
                    if i in place.same:
                        continue
                    where = place.steps[i - 1][0] if place.kind == "order" and i else place.start
                    start, end = self.told(place, i)
                    text = " ".join(self.data[start:end].decode().split())
                    made.append(Mutant(number + i, self.name, self.line_of(where), place.kind, text[:160], change))
            else:
                left_out[place.kind] += len(place.changes)
            number += len(place.changes)
        return made, used, number - first, left_out

    def told(self, place, i):
        """What to show of a place: of steps the two that are swapped, of a constant its whole line."""
        if place.kind == "order":
            steps = [place.start, *(offset for offset, _ in place.steps), place.end]
            return steps[i], steps[i + 2]
        if place.kind == "constant":
            return self.data.rfind(b"\n", 0, place.start) + 1, self.data.find(b"\n", place.end)
        return place.start, place.end

    # -- writing

    def line_of(self, offset):
        return self.data.count(b"\n", 0, offset) + 1

    def written(self, used, kept_constants):
        """The text with all its mutants."""
        inserts = []  # (offset, order, text)
        cuts = []
        for place, number in used:
            width = place.end - place.start
            inserts.append((place.start, (1, -width, -len(place.before)), place.before.format(number)))
            inserts.append((place.end, (0, width, len(place.before)), place.behind.format()))
            inserts += [(offset, (1, -width, -1000), text) for offset, text in place.steps]
            if place.cut:
                cuts.append(place.cut)
        for offset in self.fixed:
            if self.line_of(offset) not in kept_constants:
                cuts.append((offset, offset + len("constexpr"), "const"))
        events = [(offset, 1, order, text, None) for offset, order, text in inserts]
        events += [(start, 2, (), text, end) for start, end, text in cuts]
        events.sort(key=lambda event: (event[0], event[2][:1] == (1,) if event[1] == 1 else 0, event[1],
                                       event[2] if event[1] == 1 else ()))
        out, position = [], 0
        for offset, _, _, text, end in events:
            if offset > position:
                out.append(self.data[position:offset])
                position = offset
            out.append(text.encode())
            if end is not None:
                # Lines keep their numbers: compilers tell where something is wrong.
                out.append(b"\n" * self.data.count(b"\n", offset, end))
                position = max(position, end)
        out.append(self.data[position:])
        return b"".join(out)

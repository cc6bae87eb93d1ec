#!/usr/bin/env python3
"""Writes the demo's data files from the description of its machines.

    make_project.py            rewrites the files in place
    make_project.py --check    writes nothing, exit 1 when a file differs

Nothing here depends on time or chance: the same description gives the same files."""

import json
import sys
from pathlib import Path

import arabic
import chinese
import line_m1
import line_m2
from model import Language
from panel_texts import FOOTER, MENU, PANEL, PROJECT_TITLE, SCREENS, STANDARD

LIBRARY = "Servo"
MACHINES = {1: line_m1, 2: line_m2}
SETPOINTS = list(range(1, 25))
SWITCHES = [31, 32, 33, 34]
# Text numbers that differ from the field number.
SWITCH_TEXT = {31: 25, 32: 26, 33: 27, 34: 28}
DRAWING_TEXT = {41: 35, 42: 36}
POINT_TEXTS = [37, 38, 39, 40]
ELEMENTS = 40
HEADING_LINES = [101, 102, 111]
COLUMN_HEADINGS = [20, 25, 30, 35]

LANGUAGES = [
    Language("de", "Deutsch"),
    Language("en", "English"),
    Language("ar", "العربية", arabic.TEXTS, direction="rtl"),
    Language("zh", "中文", chinese.TEXTS),
]


def variable(machine, servo, family, suffix=""):
    """Process variable of a servo; suffix is the page number that diagnosis variables append to the servo number."""
    return f"Ch1.{machine.NAME}_T_servo_{servo.number}<.m{machine.NAME}_{family}_{servo.number}{suffix}>"


# Variables

def simulated_values(servo):
    """The servo's value entries, sources as page and element."""
    entries = []
    for number, page in enumerate(servo.pages, 1):
        lines = dict(zip(range(103, 111), page.left, strict=True)) | dict(zip(range(112, 121), page.right, strict=True))
        entries += [placed(number, line_number - 101, line.value) for line_number, line in lines.items()]
        for step, heading in enumerate(COLUMN_HEADINGS):
            entries.append(placed(number, heading, dict(kind="constant", value=page.steps[step], decimals=0)))
            entries += [placed(number, heading + 1 + row, cell(step)) for row, cell in enumerate(page.rows)]
    return entries


def placed(page, element, value):
    value = dict(value)
    if "source" in value:
        source_page, line_number = value["source"]
        value["source"] = {"page": source_page or page, "element": line_number - 101}
    return {"page": page, "element": element, **value}


def start_values(machine, servo, entries):
    """Both diagnosis arrays as the running machine would show them after its first step."""
    setpoints = {s.number: s.value for s in servo.setpoints}
    switch_on = {s.number - 31: s.on for s in servo.switches}
    pages = {1: [0.0] * ELEMENTS, 2: [0.0] * ELEMENTS}
    exact = {}

    def field_value(entry):
        base = 1 if entry["family"] == "servo_para" else 21
        return setpoints[base + entry["index"]]

    def end(value):
        return field_value(value) if isinstance(value, dict) else value

    for entry in entries:
        kind = entry["kind"]
        source = exact.get((entry["source"]["page"], entry["source"]["element"])) if "source" in entry else None
        if "source" in entry and source is None:
            raise ValueError(f"{machine.NAME} servo {servo.number}: source of {entry} comes later or is missing")
        if kind == "constant":
            value = entry["value"]
        elif kind == "setpoint":
            value = entry["gain"] * field_value(entry) + entry["offset"]
        elif kind == "line":
            draw = field_value(entry["draw"]) if "draw" in entry else 0.0
            value = entry["gain"] * machine.PHASES[0][0] * (1.0 + draw / 100.0) + entry["offset"]
        elif kind == "value":
            value = entry["gain"] * source + entry["offset"]
        elif kind == "lag":
            value = 0.0
        elif kind in ("rate", "starts", "faults"):
            value = entry["offset"]
        elif kind == "integral":
            value = entry["start"]
        elif kind == "swing":
            value = end(entry["low"])
        elif kind == "wander":
            value = entry["centre"]
        else:
            raise ValueError(kind)
        if "switch" in entry:
            value = value if switch_on[entry["switch"]] else 0.0
        exact[entry["page"], entry["element"]] = value
        shown = max(entry.get("min", value), min(entry.get("max", value), value))
        pages[entry["page"]][entry["element"]] = round(shown, entry["decimals"]) + 0.0
    return pages


def servo_variables(machine, servo, entries):
    para = [[0.0] * 20 for _ in range(3)]
    para2 = [[0.0] * 4 for _ in range(3)]
    for item in servo.setpoints:
        family, index = (para, item.number - 1) if item.number <= 20 else (para2, item.number - 21)
        _, low, high, _ = item.limits
        for row, value in zip(family, (item.value, low, high)):
            row[index] = value
    drawings = [0.0, 0.0]
    for item in servo.drawings:
        drawings[item.number - 41] = float(item.value)
    pages = start_values(machine, servo, entries)
    values = {"servopassiv": servo.passive}
    for family, rows in (("servo_para", para), ("servo_para2", para2)):
        values |= {family: rows[0], family + "_un": rows[1], family + "_ob": rows[2]}
    values["servo_schalt"] = sum(1 << (s.number - 31) for s in servo.switches if s.on)
    values["servo_zeich"] = drawings
    result = {variable(machine, servo, family): value for family, value in values.items()}
    for page in (1, 2):
        result[variable(machine, servo, "servo_diag", page)] = pages[page]
    for page in (1, 2):
        result[variable(machine, servo, "fetext", page)] = ""
    result[variable(machine, servo, "servoaender")] = 0
    return result


def variables():
    result = {
        "parameter<.aufloesung>": 1280,
        "parameter<.mit_navi>": True,
        "parameter<.maschinenanzahl>": len(MACHINES),
    }
    for number, machine in MACHINES.items():
        result[f"parameter<.maschinenbez_{number}>"] = machine.NAME
        result[f"parameter<.servo_anzahl_{number}>"] = len(machine.SERVOS)
    result |= {
        "Ch-1.param_client<.arabisch>": False,
        "Ch-1.intern<.ocxname>": "",
        "Ch-1.intern<.aktuelle_maschine>": 1,
        "Ch-1.intern<.navi_password_countdown>": 0,
        "Ch-1.intern<.passwort>": 5,
        "Ch-1.intern<.servo_zeiger>": 0,
    }
    result |= {f"Ch-1.intern_v<.l2_{item:02}>": 0.0 for item in SETPOINTS}
    for machine in MACHINES.values():
        for servo in machine.SERVOS:
            result |= servo_variables(machine, servo, simulated_values(servo))
    return result


# Simulation

def simulated_servo(machine, servo):
    return {
        "machine": machine.NAME,
        "servo": servo.number,
        "name": servo.de,
        "values": simulated_values(servo),
        "faults": [
            {
                "text": fault.text,
                "mean_interval_s": fault.every_s,
                "duration_s": fault.for_s,
                "stops": fault.stops,
                "effects": [{"page": page, "element": number - 101, "add": add} for page, number, add in fault.effects],
            }
            for fault in servo.faults
        ],
    }


def simulated_line(machine):
    return {
        "machine": machine.NAME,
        "unit": machine.UNIT,
        "ramp_per_s": machine.RAMP_PER_S,
        "phases": [{"speed": speed, "seconds": seconds} for speed, seconds in machine.PHASES],
    }


# Files

def compact(value):
    return json.dumps(value, ensure_ascii=False)


def block(items, indent, brackets):
    """A JSON list or object with one item per line."""
    pad = " " * indent
    return brackets[0] + "\n" + ",\n".join(pad + item for item in items) + "\n" + pad[1:] + brackets[1]


def project_json():
    servos = []
    for machine in MACHINES.values():
        for servo in machine.SERVOS:
            entry = simulated_servo(machine, servo)
            head = ", ".join(f'"{name}": {compact(entry[name])}' for name in ("machine", "servo", "name"))
            values = block(map(compact, entry["values"]), 5, "[]")
            faults = block(map(compact, entry["faults"]), 5, "[]")
            servos.append(f'{{{head},\n    "values": {values},\n    "faults": {faults}}}')
    machine = [
        '"kind": "simulated"', '"period_ms": 100', '"seed": 1', '"takeover_ms": 600',
        '"lines": ' + block((compact(simulated_line(m)) for m in MACHINES.values()), 3, "[]"),
        '"servos": ' + block(servos, 3, "[]"),
    ]
    languages = [{"number": n, **language.settings} for n, language in enumerate(LANGUAGES, 1)]
    screens = {str(base + 100 * n): titles[0] for n in MACHINES for base, titles in SCREENS.items()}
    members = [
        '"title": ' + compact(PROJECT_TITLE),
        '"resolution": 1280', '"level": 5', '"input": -1', '"language": 1',
        '"languages": ' + block(map(compact, languages), 2, "[]"),
        '"screens": ' + compact(screens),
        '"variables": ' + block((f"{compact(k)}: {compact(v)}" for k, v in variables().items()), 2, "{}"),
        '"machine": ' + block(machine, 2, "{}"),
    ]
    return block(members, 1, "{}") + "\n"


def program_ini():
    lines = ["[Project]", "ServoWithMenu=TRUE", "ServoWithFault=TRUE", "ServoWithMachineType=1"]
    for number, machine in MACHINES.items():
        lines += ["", f"[{number}Machine]"]
        for position, servo in enumerate(machine.SERVOS, 1):
            lines += [
                f"Servo{position}={servo.number}",
                f"Diag2Servo{position}={str(len(servo.pages) > 1).upper()}",
                f"ServoPic{position}={servo.picture}",
            ]
    for number, machine in MACHINES.items():
        lines += ["", f"[Machine{number}]"]
        # Counted over the servos that are not passive: the panel asks with the position in its menu.
        active = [servo for servo in machine.SERVOS if not servo.passive]
        for position in range(1, len(machine.SERVOS) + 1):
            external = position <= len(active) and active[position - 1].external
            lines.append(f"ExtServo{position}={str(external).upper()}")
    return "\n".join(lines) + "\n"


def caption_ini(servo):
    lines = ["[Parameter]"]
    for number, caption in enumerate(servo.captions, 1):
        lines += [
            f"{number}Col={'ws' if caption.white else 'sw'}",
            f"{number}Ali={int(caption.right)}",
            f"{number}X={caption.x}",
            f"{number}Y={caption.y}",
        ]
    return "\n".join(lines) + "\n"


def caption_name(machine, servo):
    variant = f"_{servo.picture}" if servo.picture > 1 else ""
    return f"{LIBRARY}/{LIBRARY}_{machine.NAME}_{servo.number}{variant}.ini"


def definitions_csv():
    rows = ["machine_type,var_name,abs_max,abs_min,offset_or_bitno,Max,Min,Pass"]

    def row(machine, servo, family, element, limits, level):
        abs_low, low, high, abs_high = limits
        rows.append(f"{machine.NAME},{variable(machine, servo, family)},{abs_high},{abs_low},{element},{high},{low},{level}")

    for machine in MACHINES.values():
        for servo in machine.SERVOS:
            for item in servo.setpoints:
                second = item.number > 20
                row(machine, servo, "servo_para2" if second else "servo_para", item.number - (21 if second else 1),
                    item.limits, item.level)
            for item in servo.switches:
                row(machine, servo, "servo_schalt", item.number - 31, (0.0, 0.0, 1.0, 1.0), item.level)
            for item in servo.drawings:
                row(machine, servo, "servo_zeich", item.number - 41, (0.0, 0.0, 999999999.0, 999999999.0), item.level)
    return "\n".join(rows) + "\n"


def servo_texts(machine, servo, pick):
    """(number, text) of every text the page and the menu ask for; texts of unused items are empty."""
    name = pick(servo.de, servo.en)
    texts = {0: name}
    setpoints = {s.number: s for s in servo.setpoints}
    for number in SETPOINTS:
        item = setpoints.get(number)
        texts[number] = f"{pick(item.de, item.en)};{item.unit}" if item else ""
    switches = {s.number: s for s in servo.switches}
    for number in SWITCHES:
        item = switches.get(number)
        texts[SWITCH_TEXT[number]] = pick(item.de, item.en) if item else ""
    drawings = {d.number: d for d in servo.drawings}
    for number, text_number in DRAWING_TEXT.items():
        item = drawings.get(number)
        texts[text_number] = pick(item.de, item.en) if item else ""
    texts |= {number: "." for number in POINT_TEXTS}
    for number in (1, 2):
        caption = servo.captions[number - 1] if number <= len(servo.captions) else None
        texts[60 + number] = pick(caption.de, caption.en) if caption else ""
    for index, page in enumerate(servo.pages):
        offset = 40 * index
        heading = name + pick(": Diagnose", ": diagnosis")
        texts[30 + offset] = f"{heading} {index + 1}" if len(servo.pages) > 1 else heading
        for number, title in zip((31, 32), page.titles, strict=True):
            texts[number + offset] = pick(*title)
        for number, title in zip(HEADING_LINES, page.headings, strict=True):
            texts[number - 60 + offset] = pick(*title)
        for number, item in list(zip(range(103, 111), page.left)) + list(zip(range(112, 121), page.right)):
            texts[number - 60 + offset] = f"{pick(item.de, item.en)};{item.unit}"
    return sorted(texts.items())


def language_texts(language):
    pick = language.pick

    def put(key, text):
        lines.append(f"{key} = {text}".rstrip())

    lines = ["# " + pick("Texte der Bedienung", "Texts of the panel")]
    for table in (PANEL, MENU, STANDARD):
        lines.append("")
        for key, de, en in table:
            put(key, pick(de, en))
    for number, machine in MACHINES.items():
        title = pick(*machine.TITLE)
        lines += ["", f"# {title}", ""]
        put(f"Panel.Machine.{machine.NAME}", title)
        for base, titles in SCREENS.items():
            put(f"Panel.Screen.{base + 100 * number}", pick(*titles))
        for key, titles in FOOTER.items():
            put(f"Standard.{1000 + 100 * number + key}", pick(*titles))
        for servo in machine.SERVOS:
            lines.append("")
            for text_number, text in servo_texts(machine, servo, pick):
                put(f"{LIBRARY}.{machine.NAME}.{LIBRARY}{servo.number}.{text_number}", text)
    return "\n".join(lines) + "\n"


def files():
    result = {
        "project.json": project_json(),
        "Parameter/Program.ini": program_ini(),
        f"{LIBRARY}/{LIBRARY}.csv": definitions_csv(),
    }
    for language in LANGUAGES:
        result[f"Texts/{language.code}.txt"] = language_texts(language)
    for machine in MACHINES.values():
        for servo in machine.SERVOS:
            result[caption_name(machine, servo)] = caption_ini(servo)
    return result


def verify():
    """Slips that would only show on the running panel."""
    for machine in MACHINES.values():
        numbers = [servo.number for servo in machine.SERVOS]
        assert len(numbers) == len(set(numbers)), machine.NAME
        for servo in machine.SERVOS:
            place = f"{machine.NAME} servo {servo.number}"
            used = [item.number for item in servo.setpoints + servo.switches + servo.drawings]
            assert used == sorted(set(used)), place
            for item in servo.setpoints:
                abs_low, low, high, abs_high = item.limits
                assert abs_low <= low <= item.value <= high <= abs_high, f"{place}: {item.de}"
            for item in servo.setpoints + servo.switches + servo.drawings:
                assert 0 <= item.level <= 5, f"{place}: {item.de}"
                for text in (language.pick(item.de, item.en) for language in LANGUAGES):
                    assert all(len(part) <= 28 for part in text.rsplit(" ", 1)), f"{place}: {text} is too long"
            for page in servo.pages:
                for item in page.left + page.right:
                    assert len(item.de) <= 30 and len(item.en) <= 30, f"{place}: {item.de} / {item.en} is too long"
    for language in LANGUAGES:
        language_texts(language)
        assert not language.missing, f"{language.code}: no translation of {language.missing}"
        assert not language.unused, f"{language.code}: nothing uses the translations of {language.unused}"


def main():
    verify()
    root = Path(__file__).resolve().parent.parent
    stale = []
    for name, content in files().items():
        path = root / name
        if "--check" in sys.argv[1:]:
            if not path.exists() or path.read_text(encoding="utf-8") != content:
                stale.append(name)
        else:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(content, encoding="utf-8")
    for name in stale:
        print(f"{name}: differs from what the tool writes")
    return 1 if stale else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Looks for gaps in a complete demo project: everything that the menu and the pages of any servo ask for must be there.

    check_demo.py FOLDER...    the project's folder; further ones are searched too (the output of draw.py)

Prints what is missing or contradictory and exits 1, else 0. Works from the files alone, not from the description that
make_project.py writes them from."""

import configparser
import csv
import json
import struct
import sys
from pathlib import Path

LIBRARY = "Servo"
RESOLUTIONS = {1280: (1280, 1024), 1024: (1024, 768), 800: (800, 600)}
FACTORS = {1280: (1.0, 1.0), 1024: (0.8, 0.75), 800: (0.625, 0.5859375)}
LEVELS = range(6)
MAX_SERVOS = 50
LINES = [*range(103, 111), *range(112, 121)]
# Field numbers by family; a field's element is its distance from the first.
FAMILIES = {"servo_para": range(1, 21), "servo_para2": range(21, 25), "servo_schalt": range(31, 35), "servo_zeich": range(41, 43)}
COLUMNS = ["machine_type", "var_name", "abs_max", "abs_min", "offset_or_bitno", "Max", "Min", "Pass"]
PANEL_TEXTS = ["Ok", "Cancel", "Clear", "Back", "Close", "On", "Off", "Lowest", "Highest", "Level", "Definition", "TooSmall",
               "TooLarge", "NoNumber", "LevelRange", "LimitsCrossed", "Machine", "AccessLevel", "Errors", "Message", "Screen"]
FOOTER_KEYS = range(1, 11)
# Screens that keys open: the machine key, leaving, and the key without a place of its own.
SCREENS = (1009, 1011, 1031)


class Check:
    def __init__(self, folders):
        self.folders = folders
        self.findings = []
        self.project = json.loads(self.text("project.json") or "{}")
        self.variables = self.project.get("variables", {})
        self.texts = {language["code"]: self.read_texts(f"Texts/{language['code']}.txt") for language in self.project.get("languages", [])}
        self.need(bool(self.texts), "project.json: no languages")
        self.definitions = self.read_definitions(f"{LIBRARY}/{LIBRARY}.csv")

    def need(self, condition, finding):
        if not condition:
            self.findings.append(finding)
        return condition

    # Files

    def file(self, name):
        """Names compare exactly here, although the panel does not mind the case of letters."""
        for folder in self.folders:
            path = folder / name.replace("\\", "/")
            if path.is_file():
                return path
        self.findings.append(f"{name}: missing file")
        return None

    def text(self, name):
        path = self.file(name)
        return path.read_text(encoding="utf-8") if path else ""

    def picture(self, name, size=None):
        path = self.file(name)
        if path is None:
            return
        data = path.read_bytes()
        if data[:6] in (b"GIF87a", b"GIF89a"):
            found = struct.unpack("<HH", data[6:10])
        elif data[:2] == b"BM":
            found = struct.unpack("<ii", data[18:26])
        elif data[:4] == struct.pack("<I", 0x9AC6CDD7):
            words = struct.unpack("<11H", data[:22])
            checksum = 0
            for word in words[:10]:
                checksum ^= word
            self.need(checksum == words[10], f"{name}: checksum of the metafile is wrong")
            self.need(data.endswith(struct.pack("<IH", 3, 0)), f"{name}: metafile has no end")
            return
        else:
            self.findings.append(f"{name}: neither GIF, BMP nor placeable metafile")
            return
        self.need(size is None or found == size, f"{name}: {found[0]} x {found[1]} pixels instead of {size}")

    def ini(self, name):
        """Sections and entries as the profile look-ups find them."""
        parser = configparser.ConfigParser(interpolation=None, delimiters="=", comment_prefixes=";")
        parser.read_string(self.text(name))
        return {section.lower(): dict(parser[section]) for section in parser.sections()}

    def entry(self, name, ini, section, entry):
        value = ini.get(section.lower(), {}).get(entry.lower())
        self.need(value is not None and value != "", f"{name}: [{section}] {entry} is missing")
        return value or ""

    def read_texts(self, name):
        texts = {}
        for number, line in enumerate(self.text(name).split("\n"), 1):
            if not line.strip() or line.startswith("#"):
                continue
            key, separator, text = line.partition("=")
            key = key.strip()
            self.need(separator, f"{name}: line {number} is no text")
            self.need(key not in texts, f"{name}: {key} stands there twice")
            texts[key] = text.strip()
        return texts

    def read_definitions(self, name):
        rows = list(csv.reader(self.text(name).splitlines()))
        if not self.need(rows and rows[0] == COLUMNS, f"{name}: the first line does not name the columns"):
            return {}
        self.need(len(rows) <= 2001, f"{name}: more than 2000 rows")
        definitions = {}
        for number, row in enumerate(rows[1:], 2):
            if not self.need(len(row) == len(COLUMNS), f"{name}: line {number} has {len(row)} columns"):
                continue
            cell = dict(zip(COLUMNS, row))
            key = (cell["machine_type"], cell["var_name"], int(cell["offset_or_bitno"]))
            self.need(key not in definitions, f"{name}: line {number} repeats an element")
            values = [float(cell[column]) for column in ("abs_min", "Min", "Max", "abs_max")]
            self.need(values == sorted(values), f"{name}: line {number}: limits are not in order")
            self.need(int(cell["Pass"]) in LEVELS, f"{name}: line {number}: access level outside 0..5")
            definitions[key] = (values[1], values[2], int(cell["Pass"]))
        levels = {level for _, _, level in definitions.values()}
        self.need(0 in levels and max(levels, default=0) > 0, f"{name}: access levels are not mixed")
        return definitions

    # Variables and texts

    def variable(self, name, kind):
        if not self.need(name in self.variables, f"project.json: variable {name} is missing"):
            return None
        value = self.variables[name]
        kinds = {
            "integer": isinstance(value, int) and not isinstance(value, bool),
            "boolean": isinstance(value, bool),
            "text": isinstance(value, str),
            "double": isinstance(value, float),
        }
        fits = kinds.get(kind) if isinstance(kind, str) else isinstance(value, list) and len(value) == kind and \
            all(isinstance(v, (int, float)) and not isinstance(v, bool) for v in value)
        what = kind if isinstance(kind, str) else f"array of {kind} numbers"
        return value if self.need(fits, f"project.json: variable {name} is no {what}") else None

    def language_text(self, key, filled=True):
        for code, texts in self.texts.items():
            if self.need(key in texts, f"Texts/{code}.txt: {key} is missing") and filled:
                self.need(texts[key] != "", f"Texts/{code}.txt: {key} is empty")

    # What is asked for at start-up

    def start(self):
        for name, kind in (("parameter<.aufloesung>", "integer"), ("parameter<.mit_navi>", "boolean"),
                           ("parameter<.maschinenanzahl>", "integer"), ("Ch-1.param_client<.arabisch>", "boolean"),
                           ("Ch-1.intern<.ocxname>", "text"), ("Ch-1.intern<.aktuelle_maschine>", "integer"),
                           ("Ch-1.intern<.navi_password_countdown>", "integer"), ("Ch-1.intern<.passwort>", "integer"),
                           ("Ch-1.intern<.servo_zeiger>", "integer")):
            self.variable(name, kind)
        for item in range(1, 25):
            self.variable(f"Ch-1.intern_v<.l2_{item:02}>", "double")
        self.need(self.project.get("resolution") in RESOLUTIONS, "project.json: resolution is none of the three panels")
        self.need(self.project.get("language") in [entry["number"] for entry in self.project.get("languages", [])],
                  "project.json: start language is none of the languages")
        keys = [set(texts) for texts in self.texts.values()]
        for code, texts in self.texts.items():
            for key in sorted(set.union(*keys) - set(texts)):
                self.findings.append(f"Texts/{code}.txt: {key} is missing, another language has it")

    def common_texts(self):
        for name in PANEL_TEXTS:
            self.language_text(f"Panel.{name}")
        self.language_text(f"{LIBRARY}.Menu.0")
        self.language_text("Standard.10000", filled=False)
        self.language_text("Standard.15000")

    def common_pictures(self):
        for resolution, size in RESOLUTIONS.items():
            fx, fy = FACTORS[resolution]
            self.picture(f"{LIBRARY}\\ServoMenu_{resolution}.bmp", size)
            self.picture(f"{LIBRARY}\\ServoMain_{resolution}.bmp", size)
            self.picture(f"{LIBRARY}\\ServoDiag_{resolution}.bmp", (int(1266 * fx), int(651 * fy)))
            for stem in ("empty", "F_Exit", "F_PageUp", "F_PageDown", "F_engine"):
                self.picture(f"Standard\\{stem}_{resolution}.gif")
            for stem in (LIBRARY, f"{LIBRARY}_Diag", f"{LIBRARY}_Diag1", f"{LIBRARY}_Diag2"):
                self.picture(f"{LIBRARY}\\{stem}_{resolution}.gif")
        self.picture("Standard\\OK.wmf")
        self.picture("Standard\\ESC.wmf")

    def footer(self, machines):
        """The panel's own reader takes lines as they stand: names and values carry no blanks."""
        name = f"{LIBRARY}/{LIBRARY}.ini"
        sections, current = {}, None
        for number, line in enumerate(self.text(name).splitlines(), 1):
            if line.startswith("["):
                current = sections.setdefault(line[1:line.index("]")], {})
            elif "=" in line and current is not None:
                entry, _, value = line.partition("=")
                self.need(entry == entry.strip() and value == value.strip(), f"{name}: line {number} has blanks beside its text")
                current[entry] = value
        for machine in machines:
            for key in FOOTER_KEYS:
                flag = sections.get(f"Machine{machine}", {}).get(f"F{key}")
                self.need(flag in ("TRUE", "FALSE"), f"{name}: [Machine{machine}] F{key} is neither TRUE nor FALSE")
                self.language_text(f"Standard.{1000 + 100 * machine + key}")
        for key in FOOTER_KEYS:
            picture = sections.get("Footer", {}).get(f"F{key}")
            if not self.need(picture, f"{name}: [Footer] F{key} is missing"):
                continue
            if key == 3:
                for level in LEVELS:
                    for resolution in RESOLUTIONS:
                        self.picture(f"{picture}{level}_{resolution}.gif")
            else:
                self.picture(picture)

    # Machines and servos

    def machine(self, number, program):
        designation = self.variable(f"parameter<.maschinenbez_{number}>", "text")
        count = self.variable(f"parameter<.servo_anzahl_{number}>", "integer")
        if designation is None or count is None:
            return
        self.need(1 <= count <= MAX_SERVOS, f"project.json: machine {number} has {count} servos")
        ini_name = "Parameter/Program.ini"
        with_type = int(self.entry(ini_name, program, "Project", "ServoWithMachineType") or 0) > 0
        prefix = designation + "_" if with_type else ""
        for resolution in RESOLUTIONS:
            self.picture(f"Standard\\Machinesymbol_{designation}_{resolution}.gif")
        for base in SCREENS:
            screen = base + 100 * number
            self.need(str(screen) in self.project.get("screens", {}), f"project.json: screen {screen} is missing")
            self.language_text(f"Panel.Screen.{screen}")
        active = 0
        for position in range(1, count + 1):
            section = f"{number}Machine"
            servo = self.entry(ini_name, program, section, f"Servo{position}")
            second = self.entry(ini_name, program, section, f"Diag2Servo{position}").upper() == "TRUE"
            variant = int(self.entry(ini_name, program, section, f"ServoPic{position}") or 1)
            if not self.need(servo.isdigit() and 1 <= int(servo) <= MAX_SERVOS, f"{ini_name}: [{section}] Servo{position} = {servo}"):
                continue
            passive = self.servo(designation, prefix, int(servo), 2 if second else 1, max(variant, 1))
            if passive is False:
                active += 1
                self.entry(ini_name, program, f"Machine{number}", f"ExtServo{active}")
        self.need(active > 0, f"machine {number} has no active servo")

    def servo(self, designation, prefix, servo, pages, variant):
        """Returns the servo's passive flag."""
        def name(family, suffix=""):
            return f"Ch1.{designation}_T_servo_{servo}<.m{designation}_{family}_{servo}{suffix}>"

        passive = self.variable(name("servopassiv"), "boolean")
        values = {}
        for family, size in (("servo_para", 20), ("servo_para2", 4)):
            values[family] = self.variable(name(family), size)
            values[family + "_un"] = self.variable(name(family + "_un"), size)
            values[family + "_ob"] = self.variable(name(family + "_ob"), size)
        self.variable(name("servo_schalt"), "integer")
        self.variable(name("servo_zeich"), 2)
        self.variable(name("servoaender"), "integer")
        for page in (1, 2):
            self.variable(name("servo_diag", page), 40)
            self.variable(name("fetext", page), "text")

        used = {first + element for family, (first, *_) in FAMILIES.items() for element in range(20)
                if (designation, name(family), element) in self.definitions}
        self.need(len(used) > 3, f"{designation} servo {servo} has hardly any parameter definitions")
        for family in ("servo_para", "servo_para2"):
            fields = FAMILIES[family]
            for field in used & set(fields):
                self.setpoint(designation, servo, name(family), field - fields[0], [values[family + end] for end in ("", "_un", "_ob")])
        self.servo_texts(f"{LIBRARY}.{designation}.{LIBRARY}{servo}.", used, pages)
        self.servo_pictures(prefix, servo, variant)
        return passive

    def setpoint(self, designation, servo, variable, element, families):
        if any(values is None for values in families):
            return
        value, low, high = (values[element] for values in families)
        place = f"{designation} servo {servo}, element {element} of {variable}"
        self.need(low <= value <= high, f"{place}: {value} is not within {low}..{high}")
        defined = self.definitions[designation, variable, element][:2]
        self.need(defined == (low, high), f"{place}: limits {low}..{high} differ from the definition")

    def servo_texts(self, stem, used, pages):
        self.language_text(f"{stem}0")
        for field in [*range(1, 25), *range(31, 35), *range(41, 43)]:
            number = field if field < 25 else field - 6
            self.language_text(f"{stem}{number}", filled=field in used)
        for number in range(37, 41):
            self.language_text(f"{stem}{number}")
        for number in (61, 62):
            self.language_text(f"{stem}{number}", filled=False)
        for page in range(pages):
            offset = 40 * page
            for number in (30, 31, 32, 41, 42, 51, *(line - 60 for line in LINES)):
                self.language_text(f"{stem}{number + offset}")

    def servo_pictures(self, prefix, servo, variant):
        part = f"_{variant}" if variant > 1 else ""
        stem = f"{prefix}{servo}{part}"
        for resolution in RESOLUTIONS:
            fx, fy = FACTORS[resolution]
            size = (int(487 * fx), int(146 * fy))
            self.picture(f"{LIBRARY}\\{LIBRARY}_{stem}_{resolution}.gif", size)
            # The finer source for the menu is optional.
            fine = f"{LIBRARY}/{LIBRARY}_S_{stem}_{resolution}.gif"
            if any((folder / fine).is_file() for folder in self.folders):
                self.picture(fine)
        layout_name = f"{LIBRARY}/{LIBRARY}_{stem}.ini"
        layout = self.ini(layout_name)
        for number in (1, 2):
            if layout.get("parameter", {}).get(f"{number}col"):
                for suffix in ("Ali", "X", "Y"):
                    value = self.entry(layout_name, layout, "Parameter", f"{number}{suffix}")
                    self.need(value.isdigit(), f"{layout_name}: {number}{suffix} is no number")

    # Simulation

    def simulation(self):
        machine = self.project.get("machine", {})
        self.need(machine.get("kind") == "simulated", "project.json: the machine is not simulated")
        lines = {line["machine"] for line in machine.get("lines", [])}
        for servo in machine.get("servos", []):
            place = f"simulation of {servo['machine']} servo {servo['servo']}"
            self.need(servo["machine"] in lines, f"{place}: the machine has no line speed")
            earlier = set()
            for value in servo["values"]:
                address = (value["page"], value["element"])
                self.need(address[0] in (1, 2) and 0 <= address[1] < 40, f"{place}: no such place {address}")
                self.need(address not in earlier, f"{place}: {address} is computed twice")
                source = value.get("source")
                if source:
                    self.need((source["page"], source["element"]) in earlier, f"{place}: source of {address} comes later")
                for reference in [value] + [value.get(member) for member in ("draw", "low", "high")]:
                    if isinstance(reference, dict) and "family" in reference:
                        name = f"Ch1.{servo['machine']}_T_servo_{servo['servo']}<.m{servo['machine']}_{reference['family']}_{servo['servo']}>"
                        size = len(self.variables.get(name, []))
                        self.need(0 <= reference["index"] < size, f"{place}: {address} follows a setpoint that does not exist")
                earlier.add(address)
            self.need({(1, line - 101) for line in LINES} <= earlier, f"{place}: a line of the first diagnosis page stands still")
            for fault in servo["faults"]:
                self.need(fault["text"] and fault["mean_interval_s"] > 0 and fault["duration_s"] > 0, f"{place}: unusable fault")
                for effect in fault["effects"]:
                    self.need((effect["page"], effect["element"]) in earlier, f"{place}: effect of a fault on nothing")

    def run(self):
        program = self.ini("Parameter/Program.ini")
        for entry in ("ServoWithMenu", "ServoWithFault", "ServoWithMachineType"):
            self.entry("Parameter/Program.ini", program, "Project", entry)
        machines = range(1, (self.variables.get("parameter<.maschinenanzahl>") or 0) + 1)
        self.start()
        self.common_texts()
        self.common_pictures()
        self.footer(machines)
        for number in machines:
            self.machine(number, program)
        for machine_type, variable, _ in self.definitions:
            self.need(variable in self.variables, f"definition of {machine_type}: variable {variable} does not exist")
        self.simulation()
        return self.findings


def main():
    folders = [Path(argument) for argument in sys.argv[1:]]
    if not folders:
        print(__doc__)
        return 2
    findings = Check(folders).run()
    for finding in findings:
        print(finding)
    print(f"{len(findings)} findings")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())

"""Vocabulary in which the demo's machines are described (line_m1.py, line_m2.py).

A servo is written down once, with its German and English texts, limits, access levels and behaviour together;
make_project.py spreads it over variables, texts, parameter definitions and the simulation. Further languages translate
the German texts in tables of their own (arabic.py, chinese.py)."""

from dataclasses import dataclass, field


class Language:
    """A language of the project. texts: its translations by German text; without them it is German or English."""

    def __init__(self, code, name, texts=None, **look):
        self.code = code
        self.settings = {"code": code, "name": name, **look}
        self.texts = texts
        self.missing = []
        self.asked = set()

    def pick(self, de, en):
        """What the language says for a text that the model has in German and English."""
        if self.texts is None:
            return de if self.code == "de" else en
        self.asked.add(de)
        if de and de not in self.texts:
            self.missing.append(de)
        return self.texts.get(de, "")

    @property
    def unused(self):
        return sorted(set(self.texts or {}) - self.asked)


@dataclass
class Setpoint:
    number: int  # field 1..20, second group 21..24
    de: str
    en: str
    unit: str
    value: float
    limits: tuple  # absolute minimum, minimum, maximum, absolute maximum
    level: int  # access level that may change it, 0..5


@dataclass
class Switch:
    number: int  # 31..34
    de: str
    en: str
    on: bool
    level: int


@dataclass
class Drawing:
    number: int  # 41 or 42
    de: str
    en: str
    value: int  # nine digits: 3 + 2 + 4
    level: int


@dataclass
class Line:
    """A line of a diagnosis page with what drives its value."""
    de: str
    en: str
    unit: str
    value: dict


@dataclass
class Page:
    headings: list  # (de, en) of lines 101, 102 and 111
    left: list  # eight lines, 103..110
    right: list  # nine lines, 112..120
    titles: list  # (de, en) of the table: what its columns are, what its rows are
    steps: list  # four column headings
    rows: list  # four functions step number 0..3 -> value


@dataclass
class Fault:
    de: str
    en: str
    every_s: float
    for_s: float
    stops: bool = False
    effects: list = field(default_factory=list)  # (page, line, what is added)

    @property
    def text(self):
        # The controller knows one text for all languages, so it carries both.
        return f"{self.de}  /  {self.en}"


@dataclass
class Caption:
    """A caption inside the servo's picture, place in twips of the 7305 x 2190 design picture."""
    de: str
    en: str
    x: int
    y: int
    white: bool = False
    right: bool = False


@dataclass
class Servo:
    number: int
    de: str
    en: str
    setpoints: list
    switches: list
    drawings: list
    pages: list  # one page, or two when the servo has a second diagnosis page
    faults: list
    captions: list
    picture: int = 1
    passive: bool = False
    external: bool = False


# What a value of a diagnosis page follows. Lines are named by their number on the page (101..120).

def constant(value, dec=1, **more):
    return dict(kind="constant", value=value, decimals=dec, **more)


def setpoint(number, tau=0, noise=0.0, gain=1.0, offset=0.0, dec=1, **more):
    return dict(kind="setpoint", **reference(number), gain=gain, offset=offset, tau_ms=tau, noise=noise, decimals=dec, **more)


def line(gain=1.0, draw=None, tau=0, noise=0.0, offset=0.0, dec=1, **more):
    entry = dict(kind="line", gain=gain, offset=offset)
    if draw is not None:
        entry["draw"] = reference(draw)
    return dict(entry, tau_ms=tau, noise=noise, decimals=dec, **more)


def of(number, gain=1.0, offset=0.0, tau=0, noise=0.0, dec=1, page=None, **more):
    return dict(kind="value", source=(page, number), gain=gain, offset=offset, tau_ms=tau, noise=noise, decimals=dec, **more)


def lag(number, gain=1.0, noise=0.0, dec=2, **more):
    return dict(kind="lag", source=(None, number), gain=gain, noise=noise, decimals=dec, **more)


def rate(number, gain=1.0, offset=0.0, tau=0, noise=0.0, dec=1, **more):
    return dict(kind="rate", source=(None, number), gain=gain, offset=offset, tau_ms=tau, noise=noise, decimals=dec, **more)


def integral(gain, start=0.0, number=None, low=None, high=None, dec=1, page=None, **more):
    entry = dict(kind="integral", gain=gain, start=start)
    if number is not None:
        entry["source"] = (page, number)
    if low is not None:
        entry.update(low=low, high=high)
    return dict(entry, decimals=dec, **more)


def swing(low, high, period, dec=1, noise=0.0, **more):
    """low and high: a number, or a text naming the setpoint field that holds it."""
    def end(value):
        return reference(int(value)) if isinstance(value, str) else value
    return dict(kind="swing", low=end(low), high=end(high), period_s=period, noise=noise, decimals=dec, **more)


def wander(centre, amplitude, period, phase=0.0, noise=0.0, dec=1, **more):
    return dict(kind="wander", centre=centre, amplitude=amplitude, period_s=period, phase=phase, noise=noise, decimals=dec,
                **more)


def starts(before):
    return dict(kind="starts", offset=float(before), decimals=0)


def faults(before, stops=False):
    return dict(kind="faults", stops=stops, offset=float(before), decimals=0)


def reference(number):
    if number <= 20:
        return dict(family="servo_para", index=number - 1)
    return dict(family="servo_para2", index=number - 21)


# Lines that every drive has.

PER_HOUR = 0.000277778

def controller(speed, rpm, idle, accel, rated, hours, warm=31.0, speed_noise=0.8):
    """Right half of the first diagnosis page. speed: line 103..110 that carries the axis speed; rpm: motor revolutions per
    minute for one unit of it; idle: torque at constant speed in percent; accel: further percent for one unit per second of
    acceleration; rated: motor current in ampere at 100 %; warm: motor temperature without load."""
    return [
        Line("Motordrehzahl", "Motor speed", "1/min", of(speed, rpm, noise=speed_noise, dec=0)),
        Line("Drehmoment", "Torque", "%", rate(speed, accel, idle, tau=150, noise=1.2, min=0.0)),
        Line("Motorstrom", "Motor current", "A", of(113, round(rated / 100.0, 6), noise=round(rated * 0.004, 6), dec=2, min=0.0)),
        Line("Zwischenkreisspannung", "DC link voltage", "V", wander(562.0, 4.5, 47.0, idle / 100.0, noise=0.9, dec=0)),
        Line("Motortemperatur", "Motor temperature", "°C", of(113, 0.55, warm, tau=90000, noise=0.08)),
        Line("Kühlkörpertemperatur", "Heat sink temperature", "°C", of(113, 0.32, 27.5, tau=45000, noise=0.08)),
        Line("Leistungsaufnahme", "Power input", "kW", of(112, round(rated * 0.0000095, 10), 0.06, tau=400, noise=0.01, dec=2, min=0.0)),
        Line("Auslastung (i²t)", "Utilisation (i²t)", "%", of(113, 0.82, tau=20000, noise=0.2, min=0.0)),
        Line("Betriebsstunden", "Operating hours", "h", integral(PER_HOUR, hours, dec=2)),
    ]


LOOP = ("Regelkreis und Geber", "Control loop and encoder")
CYCLE = ("Werte des Antriebsreglers, Takt 2 ms", "Values of the drive controller, cycle 2 ms")
WEAR = ("Mechanik und Wartung", "Mechanics and maintenance")
DRIVE = ("Antriebsregler", "Drive controller")


def loop(kv, kp, reset, unit, wobble, rpm_page=1):
    """Left half of the second diagnosis page."""
    return [
        Line("Lageregler Kv wirksam", "Position loop Kv active", "1/s", constant(kv, 1)),
        Line("Drehzahlregler Kp wirksam", "Speed loop Kp active", "Nm·s", constant(kp, 2)),
        Line("Nachstellzeit wirksam", "Integral time active", "ms", constant(reset, 1)),
        Line("Vorsteuerung Drehmoment", "Torque feed-forward", "%", of(113, 0.9, -2.0, tau=80, noise=0.5, page=rpm_page)),
        Line("Geberlage", "Encoder position", "°", integral(6.0, 0.0, 112, low=0.0, high=360.0, page=rpm_page)),
        Line("Umdrehungen seit Einschalten", "Revolutions since start", "", integral(0.0166667, 0.0, 112, page=rpm_page, dec=0)),
        Line("Lageabweichung", "Position deviation", unit, wander(0.0, wobble, 3.7, 0.2, noise=round(wobble * 0.6, 6), dec=3)),
        Line("Schwingung effektiv", "Vibration r.m.s.", "mm/s", of(112, 0.0011, 0.18, tau=900, noise=0.04, dec=2, page=rpm_page)),
    ]


def wear(extra, brake, grease):
    """Right half of the second diagnosis page; extra: the one line that is particular to the axis."""
    return [
        Line("Getriebetemperatur", "Gearbox temperature", "°C", of(116, 0.86, 2.0, tau=60000, noise=0.1, page=1)),
        Line("Lagertemperatur A-Seite", "Bearing temperature drive end", "°C", of(116, 0.78, 1.5, tau=40000, noise=0.1, page=1)),
        Line("Lagertemperatur B-Seite", "Bearing temperature other end", "°C", of(116, 0.74, 0.5, tau=40000, noise=0.1, page=1)),
        Line("Starts seit Wartung", "Starts since service", "", starts(1284)),
        Line("Not-Halte seit Wartung", "Emergency stops since service", "", faults(17, stops=True)),
        Line("Bremsbelag Rest", "Brake lining left", "%", constant(brake, 0)),
        extra,
        Line("Schmierung fällig in", "Lubrication due in", "h", integral(-PER_HOUR, grease, low=0.0, high=2000.0, dec=2)),
        Line("Störungen seit Wartung", "Faults since service", "", faults(64)),
    ]


ROWS = ("Zeilen: Mittel, Spitze, Schicht, gesamt", "Rows: mean, peak, shift, total")


def table(base, slope, dec=2):
    """Four rows over four speed steps; base: mean at the first step, slope: growth per step."""
    def row(factor, swinging, period):
        def cell(step):
            centre = (base + slope * step) * factor
            return wander(round(centre, 4), round(abs(centre) * swinging, 4), period + 7.0 * step, 0.21 * step, dec=dec)
        return cell
    return [row(1.0, 0.05, 31.0), row(1.9, 0.12, 43.0), row(1.15, 0.03, 180.0), row(1.08, 0.0, 600.0)]

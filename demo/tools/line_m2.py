"""Machine M2: a palletiser that lifts, turns and sets down the stacks of the converting line."""

from model import (CYCLE, DRIVE, LOOP, ROWS, WEAR, Caption, Drawing, Fault, Line, Page, Servo, Setpoint, Switch, constant,
                   controller, integral, line, loop, of, rate, setpoint, swing, table, wander, wear)

NAME = "M2"
TITLE = ("Palettierer", "Palletiser")
UNIT = "1/min"
RAMP_PER_S = 1.5
PHASES = [(6.0, 80.0), (3.0, 30.0), (0.0, 20.0)]

LOADS = [100.0, 200.0, 300.0, 400.0]


def steps(de, en):
    return [(f"{de} bei 100 / 200 / 300 / 400 kg", f"{en} at 100 / 200 / 300 / 400 kg"), ROWS]


SERVOS = [
    Servo(
        1, "Hubwerk", "Hoist",
        setpoints=[
            Setpoint(1, "Greifhöhe", "Pick height", "mm", 640.0, (100.0, 200.0, 1200.0, 1400.0), 0),
            Setpoint(2, "Fahrhöhe", "Travel height", "mm", 1850.0, (300.0, 600.0, 2300.0, 2400.0), 0),
            Setpoint(3, "Hubgeschwindigkeit", "Lifting speed", "mm/s", 680.0, (10.0, 50.0, 1000.0, 1200.0), 1),
            Setpoint(4, "Senkgeschwindigkeit", "Lowering speed", "mm/s", 540.0, (10.0, 50.0, 1000.0, 1200.0), 1),
            Setpoint(5, "Ablageabstand", "Set-down distance", "mm", 8.0, (0.0, 2.0, 40.0, 60.0), 0),
            Setpoint(11, "Beschleunigung", "Acceleration", "m/s²", 1.8, (0.1, 0.3, 4.0, 5.0), 3),
            Setpoint(12, "Ruck", "Jerk", "m/s³", 12.0, (1.0, 2.0, 40.0, 60.0), 4),
            Setpoint(13, "Schlaffseilerkennung", "Slack belt detection", "N", 60.0, (10.0, 20.0, 300.0, 400.0), 4),
            Setpoint(14, "Lastausgleich", "Load compensation", "%", 85.0, (0.0, 0.0, 120.0, 150.0), 5),
        ],
        switches=[Switch(31, "Lastausgleich", "Load compensation", True, 2), Switch(33, "Bremsentest", "Brake test", False, 3)],
        drawings=[Drawing(41, "Zeichnung Hubriemen", "Drawing of lifting belt", 512300041, 4)],
        pages=[
            Page([("Hubachse", "Lifting axis"), ("Zahnriemen AT10, doppelt geführt", "Timing belt AT10, two strands"), DRIVE],
                 [Line("Hubhöhe", "Lifting height", "mm", swing("1", "2", 10.0, noise=0.05, dec=1)),
                  Line("Hubgeschwindigkeit Istwert", "Lifting speed actual", "mm/s", rate(103, tau=60, noise=0.3)),
                  Line("Schleppfehler", "Following error", "mm", of(104, 0.004, noise=0.03, dec=3)),
                  Line("Last am Greifer", "Load at gripper", "kg", wander(182.0, 24.0, 40.0, noise=0.5)),
                  Line("Riemenkraft", "Belt force", "N", of(106, 9.81, 140.0, noise=8.0, dec=0)),
                  Line("Takte je Minute", "Cycles per minute", "1/min", line(noise=0.02)),
                  Line("Hübe gesamt", "Strokes in total", "", integral(0.0167, 96120.0, 108, dec=0)),
                  Line("Bremse gelüftet", "Brake released", "", of(104, 1.0, dec=0, max=1.0))],
                 controller(104, 3.8, 33.0, 0.06, 19.5, 7411.6),
                 steps("Lagefehler (mm)", "Position error (mm)"), LOADS, table(0.12, 0.05, 3)),
        ],
        faults=[Fault("E511 Schlaffriemen erkannt", "Slack belt detected", 360.0, 9.0, stops=True, effects=[(1, 107, -1100.0)])],
        captions=[Caption("7,5 kW", "7.5 kW", 1110, 630, white=True), Caption("Hub 2400 mm", "Travel 2400 mm", 7140, 150, right=True)],
    ),
    Servo(
        2, "Drehtisch", "Turntable",
        setpoints=[
            Setpoint(1, "Drehwinkel", "Turning angle", "°", 90.0, (-360.0, -180.0, 180.0, 360.0), 0),
            Setpoint(2, "Grundstellung", "Home position", "°", -0.6, (-45.0, -10.0, 10.0, 45.0), 1),
            Setpoint(3, "Drehgeschwindigkeit", "Turning speed", "°/s", 75.0, (1.0, 5.0, 120.0, 150.0), 0),
            Setpoint(11, "Winkelbeschleunigung", "Angular acceleration", "°/s²", 160.0, (5.0, 20.0, 400.0, 500.0), 3),
            Setpoint(12, "Positionsfenster", "Position window", "°", 0.15, (0.01, 0.05, 2.0, 5.0), 3),
            Setpoint(13, "Schneckenspiel Ausgleich", "Worm play compensation", "°", 0.08, (0.0, 0.0, 0.5, 1.0), 5),
            Setpoint(21, "Lage ungerader Schichten", "Odd layer position", "°", 180.0, (-360.0, -180.0, 180.0, 360.0), 0),
            Setpoint(23, "Beruhigungszeit", "Settling time", "ms", 120.0, (0.0, 20.0, 1000.0, 2000.0), 2),
        ],
        switches=[Switch(31, "Verbund legen", "Interlocked layers", True, 0), Switch(32, "Kurzer Weg", "Shortest way", True, 2)],
        drawings=[Drawing(41, "Zeichnung Schneckenrad", "Drawing of worm wheel", 523100090, 4),
                  Drawing(42, "Zeichnung Drehkranz", "Drawing of slewing ring", 523104416, 4)],
        pages=[
            Page([("Drehachse", "Turning axis"), ("Schneckengetriebe 1 : 48", "Worm gear 1 : 48"), DRIVE],
                 [Line("Tischwinkel", "Table angle", "°", swing("2", "1", 10.0, noise=0.01, dec=2)),
                  Line("Drehgeschwindigkeit", "Turning speed", "°/s", rate(103, tau=60, noise=0.05)),
                  Line("Schleppfehler", "Following error", "°", of(104, 0.002, noise=0.005, dec=3)),
                  Line("Massenträgheit", "Moment of inertia", "kg·m²", wander(61.0, 9.0, 40.0, noise=0.2)),
                  Line("Schicht", "Layer", "", integral(0.1, 1.0, low=1.0, high=9.0, dec=0)),
                  Line("Takte je Minute", "Cycles per minute", "1/min", line(noise=0.02)),
                  Line("Kippmoment", "Tilting moment", "Nm", of(106, 3.2, 18.0, noise=2.0)),
                  Line("Drehungen gesamt", "Turns in total", "", integral(0.0167, 88340.0, 108, dec=0))],
                 controller(104, 8.0, 16.0, 0.6, 8.8, 7410.9),
                 steps("Winkelfehler (°)", "Angle error (°)"), LOADS, table(0.02, 0.01, 3)),
            Page([LOOP, CYCLE, WEAR], loop(24.0, 1.7, 18.0, "°", 0.012),
                 wear(Line("Schneckenspiel", "Worm play", "°", constant(0.07, 2)), 88, 540.0),
                 steps("Drehmoment (%)", "Torque (%)"), LOADS, table(12.0, 4.0, 1)),
        ],
        faults=[Fault("E523 Positionsfenster nicht erreicht", "Position window not reached", 290.0, 7.0, effects=[(1, 105, 0.6)])],
        captions=[Caption("1,8 kW", "1.8 kW", 780, 1320, white=True), Caption("i = 48", "i = 48", 2850, 1230)],
    ),
    Servo(
        4, "Portalfahrwerk", "Gantry drive", external=True,
        setpoints=[
            Setpoint(1, "Aufnahmeplatz", "Pick position", "mm", 150.0, (0.0, 50.0, 3900.0, 4000.0), 0),
            Setpoint(2, "Ablageplatz 1", "Place position 1", "mm", 2250.0, (0.0, 50.0, 3900.0, 4000.0), 0),
            Setpoint(3, "Ablageplatz 2", "Place position 2", "mm", 3480.0, (0.0, 50.0, 3900.0, 4000.0), 0),
            Setpoint(4, "Fahrgeschwindigkeit", "Travel speed", "m/min", 96.0, (1.0, 6.0, 150.0, 180.0), 0),
            Setpoint(11, "Beschleunigung", "Acceleration", "m/s²", 1.5, (0.1, 0.2, 3.0, 4.0), 3),
            Setpoint(12, "Pendeldämpfung", "Sway damping", "%", 60.0, (0.0, 0.0, 100.0, 100.0), 3),
            Setpoint(13, "Ritzelkorrektur", "Pinion correction", "%", -0.018, (-0.5, -0.1, 0.1, 0.5), 5),
            Setpoint(14, "Lageregler Kv", "Position loop Kv", "1/s", 14.0, (1.0, 4.0, 40.0, 80.0), 5),
        ],
        switches=[Switch(31, "Platz 1 belegen", "Use place 1", True, 0), Switch(32, "Platz 2 belegen", "Use place 2", True, 0),
                  Switch(34, "Schmierung Zahnstange", "Rack lubrication", True, 2)],
        drawings=[Drawing(42, "Zeichnung Ritzel", "Drawing of pinion", 534010212, 4)],
        pages=[
            Page([("Fahrachse", "Travelling axis"), ("Zahnstange Modul 3, schrägverzahnt", "Rack module 3, helical"), DRIVE],
                 [Line("Portalposition", "Gantry position", "mm", swing("1", "2", 20.0, noise=0.05, dec=1)),
                  Line("Fahrgeschwindigkeit Istwert", "Travel speed actual", "m/min", rate(103, 0.06, tau=80, noise=0.05)),
                  Line("Schleppfehler", "Following error", "mm", of(104, 0.02, noise=0.05, dec=3)),
                  Line("Pendelwinkel", "Sway angle", "°", wander(0.0, 0.4, 3.1, noise=0.03, dec=2)),
                  Line("Vorschubkraft", "Feed force", "N", rate(103, 0.9, 260.0, tau=400, noise=12.0, dec=0)),
                  Line("Takte je Minute", "Cycles per minute", "1/min", line(noise=0.02)),
                  Line("Fahrweg", "Distance travelled", "km", integral(0.0000167, 1841.2, 104, dec=2)),
                  Line("Abstand zum Anschlag", "Distance to end stop", "mm", of(103, 1.0, 0.0, dec=1))],
                 controller(104, 22.0, 24.0, 0.7, 12.6, 7410.1),
                 steps("Lagefehler (mm)", "Position error (mm)"), LOADS, table(0.2, 0.08, 3)),
        ],
        faults=[Fault("E541 Hindernis im Fahrweg", "Obstacle in travel path", 450.0, 11.0, stops=True)],
        captions=[Caption("3,6 kW", "3.6 kW", 3435, 480, white=True), Caption("Zahnstange", "Rack", 6450, 1380, right=True)],
    ),
]

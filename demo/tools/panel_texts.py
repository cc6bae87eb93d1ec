"""Language texts that belong to no servo: the panel's own words, footer keys, messages, screens."""

# (key, German, English)
PANEL = [
    ("Panel.Title", "Servoantriebe", "Servo drives"),
    ("Panel.OK", "OK", "OK"),
    ("Panel.Cancel", "Abbruch", "Cancel"),
    ("Panel.Clear", "Löschen", "Clear"),
    ("Panel.Back", "Zurück", "Back"),
    ("Panel.Close", "Schließen", "Close"),
    ("Panel.On", "Ein", "On"),
    ("Panel.Off", "Aus", "Off"),
    ("Panel.Yes", "Ja", "Yes"),
    ("Panel.No", "Nein", "No"),
    ("Panel.Value", "Wert", "Value"),
    ("Panel.Min", "Minimum", "Minimum"),
    ("Panel.Max", "Maximum", "Maximum"),
    ("Panel.AbsMin", "Kleinstes Minimum", "Lowest minimum"),
    ("Panel.AbsMax", "Größtes Maximum", "Highest maximum"),
    ("Panel.Pass", "Zugangsstufe", "Access level"),
    ("Panel.Level", "Stufe", "Level"),
    ("Panel.Level0", "Bediener", "Operator"),
    ("Panel.Level1", "Maschinenführer", "Machine minder"),
    ("Panel.Level2", "Schichtführer", "Shift leader"),
    ("Panel.Level3", "Instandhaltung", "Maintenance"),
    ("Panel.Level4", "Inbetriebnahme", "Commissioning"),
    ("Panel.Level5", "Service", "Service"),
    ("Panel.Definition", "Grenzen und Zugang", "Limits and access"),
    ("Panel.Input", "Eingabe", "Input"),
    ("Panel.OutOfRange", "Der Wert liegt außerhalb der Grenzen.", "The value is outside its limits."),
    ("Panel.MinAboveMax", "Das Minimum ist größer als das Maximum.", "The minimum is greater than the maximum."),
    ("Panel.NoNumber", "Das ist keine Zahl.", "This is not a number."),
    ("Panel.Machine", "Maschine", "Machine"),
    ("Panel.Servo", "Servo", "Servo"),
    ("Panel.Language", "Sprache", "Language"),
    ("Panel.Time", "Uhrzeit", "Time"),
    ("Panel.Errors", "Fehlermeldungen", "Error reports"),
    ("Panel.Error", "Fehler", "Error"),
    ("Panel.Count", "Anzahl", "Count"),
    ("Panel.Message", "Hinweis", "Note"),
    ("Panel.Screen", "Bild", "Screen"),
    ("Panel.ScreenMissing", "Dieses Bild gibt es nicht.", "There is no such screen."),
    ("Panel.Link", "Verbindung zur Steuerung", "Connection to controller"),
    ("Panel.LinkUp", "verbunden", "connected"),
    ("Panel.LinkDown", "unterbrochen", "interrupted"),
    ("Panel.Simulated", "Simulierte Maschine", "Simulated machine"),
    ("Panel.NoFault", "Keine Störung", "No fault"),
]

MENU = [("Servo.Menu.0", "Servoantriebe der Maschine", "Servo drives of the machine")]

STANDARD = [
    ("Standard.10000", "", ""),
    ("Standard.15000", "Eingaben sind an diesem Bedienplatz gesperrt.", "Inputs are locked at this panel."),
]

# Footer key -> text. Number 1000 + 100 x machine + key.
FOOTER = {
    1: ("Übersicht", "Overview"),
    2: ("Störungen", "Faults"),
    3: ("Zugang", "Access"),
    4: ("Grenzen", "Limits"),
    5: ("Voriger", "Previous"),
    6: ("Nächster", "Next"),
    7: ("Diagnose 1", "Diagnosis 1"),
    8: ("Diagnose 2", "Diagnosis 2"),
    9: ("Maschine", "Machine"),
    10: ("Diagnose", "Diagnosis"),
    11: ("Beenden", "Exit"),
    31: ("Grundbild", "Start screen"),
}

# Screens that keys open: base number -> title; number = base + 100 x machine.
SCREENS = {
    1009: ("Maschinenwahl", "Machine selection"),
    1011: ("Hauptmenü", "Main menu"),
    1031: ("Grundbild", "Start screen"),
}

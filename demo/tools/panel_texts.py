"""Language texts that belong to no servo: the panel's own words, footer keys, messages, screens."""

PROJECT_TITLE = "Servoantriebe: Verarbeitungslinie und Palettierer"

# (key, German, English). Key pads and keys are narrow: short words.
PANEL = [
    ("Panel.Title", PROJECT_TITLE, "Servo drives: converting line and palletiser"),
    ("Panel.Ok", "OK", "OK"),
    ("Panel.Cancel", "Abbruch", "Cancel"),
    ("Panel.Clear", "C", "C"),
    ("Panel.Back", "Zurück", "Back"),
    ("Panel.Close", "Schließen", "Close"),
    ("Panel.On", "Ein", "On"),
    ("Panel.Off", "Aus", "Off"),
    ("Panel.Lowest", "Min", "Min"),
    ("Panel.Highest", "Max", "Max"),
    ("Panel.Level", "Stufe", "Level"),
    ("Panel.Definition", "Grenzen und Zugang", "Limits and access"),
    ("Panel.TooSmall", "Zu klein, mindestens", "Too small, at least"),
    ("Panel.TooLarge", "Zu groß, höchstens", "Too large, at most"),
    ("Panel.NoNumber", "Das ist keine Zahl", "This is not a number"),
    ("Panel.LevelRange", "Stufe: ganze Zahl bis 32767", "Level: whole number up to 32767"),
    ("Panel.LimitsCrossed", "Min ist größer als Max", "Min is greater than Max"),
    ("Panel.Machine", "Maschine", "Machine"),
    ("Panel.AccessLevel", "Zugangsstufe", "Access level"),
    ("Panel.Errors", "Meldungen", "Reports"),
    ("Panel.Message", "Hinweis", "Note"),
    ("Panel.Screen", "Bild", "Screen"),
    ("Panel.Languages", "Sprache", "Language"),
    ("Panel.LinkGood", "Verbunden", "Connected"),
    ("Panel.LinkPartly", "Werte fehlen", "Values missing"),
    ("Panel.LinkBad", "Keine Verbindung", "No connection"),
    ("Panel.Written", "Geschrieben, Werte:", "Written, values:"),
    ("Panel.NotWritten", "Nicht geschrieben", "Not written"),
    ("Panel.ClearReports", "Liste leeren", "Clear list"),
    ("Panel.FirstTime", "Zuerst", "First"),
    ("Panel.LastTime", "Zuletzt", "Last"),
    ("Panel.Times", "Anzahl", "Count"),
    ("Panel.Procedure", "Prozedur", "Procedure"),
    ("Panel.Trend", "Verlauf", "Trend"),
    ("Panel.TrendShared", "Eine Skala", "One scale"),
    ("Panel.TrendFreeze", "Anhalten", "Freeze"),
    ("Panel.TrendContinue", "Weiter", "Continue"),
    ("Panel.TrendAdd", "Weiteren Wert antippen", "Touch a value to add it"),
    ("Panel.TrendFull", "höchstens vier Werte", "four values at most"),
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

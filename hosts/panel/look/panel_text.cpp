#include "panel/look/panel_text.h"

#include <array>

namespace servopanel::panel {

namespace {

struct Word {
    PanelText text;
    std::string_view key;
    const char* german;
    const char* english;
};

constexpr std::array words{
    Word{PanelText::Ok, "Panel.Ok", "OK", "OK"},
    Word{PanelText::Cancel, "Panel.Cancel", "Abbruch", "Cancel"},
    Word{PanelText::Clear, "Panel.Clear", "C", "C"},
    Word{PanelText::Lowest, "Panel.Lowest", "Min", "Min"},
    Word{PanelText::Highest, "Panel.Highest", "Max", "Max"},
    Word{PanelText::TooSmall, "Panel.TooSmall", "Zu klein: mindestens", "Too small: at least"},
    Word{PanelText::TooLarge, "Panel.TooLarge", "Zu groß: höchstens", "Too large: at most"},
    Word{PanelText::NoNumber, "Panel.NoNumber", "Bitte eine Zahl eingeben", "Please enter a number"},
    Word{PanelText::Level, "Panel.Level", "Stufe", "Level"},
    Word{PanelText::LevelRange, "Panel.LevelRange", "Stufe: ganze Zahl bis 32767",
        "Level: whole number up to 32767"},
    Word{
        PanelText::LimitsCrossed, "Panel.LimitsCrossed", "Min ist größer als Max", "Min is greater than Max"},
    Word{PanelText::Definition, "Panel.Definition", "Grenzen und Zugriff", "Limits and access"},
    Word{PanelText::On, "Panel.On", "EIN", "ON"},
    Word{PanelText::Off, "Panel.Off", "AUS", "OFF"},
    Word{PanelText::Machine, "Panel.Machine", "Maschine", "Machine"},
    Word{PanelText::AccessLevel, "Panel.AccessLevel", "Zugriffsstufe", "Access level"},
    Word{PanelText::Errors, "Panel.Errors", "Meldungen", "Reports"},
    Word{PanelText::Close, "Panel.Close", "Schließen", "Close"},
    Word{PanelText::Back, "Panel.Back", "Zurück", "Back"},
    Word{PanelText::Screen, "Panel.Screen", "Bild", "Screen"},
    Word{PanelText::Message, "Panel.Message", "Hinweis", "Message"},
    Word{PanelText::DecimalPoint, "Panel.DecimalPoint", ",", "."},
    Word{PanelText::Languages, "Panel.Languages", "Sprache", "Language"},
    Word{PanelText::LinkGood, "Panel.LinkGood", "Verbunden", "Connected"},
    Word{PanelText::LinkPartly, "Panel.LinkPartly", "Werte fehlen", "Values missing"},
    Word{PanelText::LinkBad, "Panel.LinkBad", "Keine Verbindung", "No connection"},
    Word{PanelText::Written, "Panel.Written", "Geschrieben, Werte:", "Written, values:"},
    Word{PanelText::NotWritten, "Panel.NotWritten", "Nicht geschrieben", "Not written"},
    Word{PanelText::ClearReports, "Panel.ClearReports", "Liste leeren", "Clear list"},
    Word{PanelText::FirstTime, "Panel.FirstTime", "Zuerst", "First"},
    Word{PanelText::LastTime, "Panel.LastTime", "Zuletzt", "Last"},
    Word{PanelText::Times, "Panel.Times", "Anzahl", "Count"},
    Word{PanelText::Procedure, "Panel.Procedure", "Prozedur", "Procedure"},
};

const Word& word(PanelText text)
{
    for (const Word& each : words)
        if (each.text == text) return each;
    return words.front();
}

} // namespace

std::string_view panelTextKey(PanelText text) { return word(text).key; }

QString panelWord(PanelText text, std::string_view languageCode)
{
    const Word& found = word(text);
    return QString::fromUtf8(languageCode == "de" ? found.german : found.english);
}

} // namespace servopanel::panel

#include "platform/facades/ini_eingabe.h"

#include "platform/facades/textanzeige.h"
#include "servo_page/servo_main.h"

#include <vector>

namespace servopanel::servo_page {

namespace {

// Columns of one definition as the editor gives them back. It reports OK and Cancel alike, and a cancelled one gives
// back what it was given: only a value that has changed proves that the operator has accepted what he saw, and then he
// has accepted all of it, also what stood in for a column that could not be read.
class Übernahme {
public:
    template <class T>
    void operator()(T& wert, bool& fehlt, T neu)
    {
        geändert_ = geändert_ || neu != wert;
        wert = neu;
        fehlt_.push_back(&fehlt);
    }
    // The columns that were taken are to be written back from now on.
    void abschließen() const
    {
        if (!geändert_) return;
        for (bool* fehlt : fehlt_)
            *fehlt = false;
    }

private:
    bool geändert_ = false;
    std::vector<bool*> fehlt_;
};

} // namespace

void ServoMain::IniEingabe_EingabeFertig()
{
    basic::StatementTrap trap{fehler(), "Ma IniEingabe_EingabeFertig"};
    using platform::IniEingabe;
    const std::int16_t ziel = zustand_.bearbeitung.EditorZiel;
    Übernahme übernehmen;

    if (istZeichnung(ziel)) {
        // 1. A drawing number has no limits, only an access level.
        const std::int16_t feld = zeichnungsFeld(ziel);
        trap([&] {
            const std::int16_t stufe = IniEingabe{kind("IniEingabe")}.Pass();
            config::ParamDef& def = zustand_.Definitionen[feld - 1];
            übernehmen(def.Pass, def.PassFehlt, stufe);
        });
        for (const std::int16_t item : zeichnungsItems(feld))
            trap([&] { platform::Textanzeige{kind(zeichnungName(item), item)}.Hintergrund(farben::Silber); });
    } else {
        // 2. Everything else has both.
        trap([&] {
            const double grenze = IniEingabe{kind("IniEingabe")}.Min();
            config::ParamDef& def = zustand_.Definitionen[ziel - 1];
            übernehmen(def.Min, def.MinFehlt, grenze);
        });
        trap([&] {
            const double grenze = IniEingabe{kind("IniEingabe")}.Max();
            config::ParamDef& def = zustand_.Definitionen[ziel - 1];
            übernehmen(def.Max, def.MaxFehlt, grenze);
        });
        trap([&] {
            const std::int16_t stufe = IniEingabe{kind("IniEingabe")}.Pass();
            config::ParamDef& def = zustand_.Definitionen[ziel - 1];
            übernehmen(def.Pass, def.PassFehlt, stufe);
        });
    }
    übernehmen.abschließen();

    // 3. Close the editor, keep the definition for good and show what it means now.
    trap([&] { IniEingabe{kind("IniEingabe")}.Offen(false); });
    trap([&] { IniEingabe{kind("IniEingabe")}.Visible(false); });
    IniSchreiben();
    EingabeDarstellen(false);
    FußzeileFreigabe(true);
    SeiteUmschalten(false);
}

// Every way out of the editor ends in EingabeFertig; losing the focus alone, as to a message box, changes nothing.
void ServoMain::IniEingabe_LostFocus() { }

} // namespace servopanel::servo_page

#pragma once

#include "basic/statement_trap.h"
#include "config/module.h"
#include "platform/control_platform.h"
#include "platform/facades/sollwert.h"
#include "platform/hosted_control.h"
#include "servo_page/felder.h"
#include "servo_page/seiten_zustand.h"
#include "servo_page/structure/platzierung.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace servopanel::servo_page {

// The parameter page of one servo. Every procedure has its own statement trap and returns normally. Structure (what the
// page consists of and shows) is implemented in structure/, values and editing in values/, each procedure in the file
// of its name.
class ServoMain final : public platform::HostedControl {
public:
    ServoMain(config::Module module, const platform::ControlPlatform& platform);

    // Seen by hosts.
    void initialize() override;
    void show() override;
    void terminate() override;
    basic::Variant get(const platform::Member& member) override;
    void put(const platform::Member& member, const basic::Variant& value) override;
    bool deliver(platform::ChildId child, std::string_view event, platform::Args args) override;
    platform::FormData form() const override;

    // Structure. Booleans that come from outside are 16-bit: -1 and 0, "is False" means 0.
    void BildInit(std::int16_t bildNummer); // builds the page once
    std::int16_t BildInit();
    void BildShow(std::int16_t zeigen); // fills in the shown servo and raises JetztAnzeigen
    std::int16_t BildShow();
    void SpracheGeandert(std::int16_t sprache);
    void UserControl_Terminate();
    void SeiteUmschalten(bool servoGewechselt); // binds servo AktServo and the page's mode
    void AdressenUmschalten(bool seitenWechsel); // texts and places of all items
    void TextAufdröseln(std::string_view text, std::string& beschriftung, std::string& einheit);
    void ZeichnenDesMainBereichsTeile(
        platform::ChildId ziel, std::int16_t oben, std::int16_t unten, bool mitLinie); // twips

    // Values and editing. feld: field number (1..24 setpoints, 31..34 switches, 41..46 drawing number items).
    // Errors are reported under the procedure's name and never come out; what failed keeps what it had.
    void IniLesen(); // definitions of the shown servo; from SeiteUmschalten
    void IniSchreiben(); // definitions of the page into the database; from IniEingabe_EingabeFertig
    void WerteLesen(bool nurAuffrischen);
    // Gives the touched fields to the machine, each family as one whole; from Fußzeile_TasteClick on confirmation.
    void WerteSchreiben();
    void EingabeDarstellen(bool markenBehalten);
    void Sollwert_MouseDown(std::int16_t feld, std::int16_t taste, std::int16_t umschalt, float x, float y);
    void Eingabemaske_EingabeAenderung();
    void Eingabemaske_Eingabefertig();
    void IniEingabe_EingabeFertig();
    void IniEingabe_LostFocus();
    // Offers the footer keys again (True), or withdraws them all while something is being edited (False).
    void FußzeileFreigabe(bool frei);
    void Fußzeile_TasteClick(std::int16_t taste);
    void Timer_Timer();
    void ScrollBar_NeuePos(std::int16_t neuePos);
    void ScrollbarAnzeigen(); // moves both halves to the scroll bar's offset; from ScrollBar_NeuePos

    // Puts the modified flag (16-bit) to a state that editing itself never leaves; for replay scenarios only. A host of
    // a machine must not: with -1 the confirm key writes all families although nobody entered anything, with 0 it does
    // not write what was entered.
    void geaendertSetzen(std::int16_t geaendert);

    // What the page keeps. For tests: some of it shows in no input and no key.
    const SeitenZustand& zustand() const { return zustand_; }

private:
    // Children of the form by name, for one statement.
    platform::ControlRef kind(std::string_view name, std::int16_t index = platform::ChildId::noIndex)
    {
        return platform_.form.child({name, index});
    }

    display::GemeinsamerZustand& gemeinsam() { return module_.umfeld.zustand; }
    basic::ErrorSink& fehler() { return module_.umfeld.fehler; }
    // Servo number of the shown servo; error 9 when AktServo is outside 1..50.
    std::int16_t servoNummer() { return gemeinsam().ServoNr[gemeinsam().AktServo]; }
    // A variable of the shown servo, such as family "_servo_para_".
    std::string servoVariable(std::string_view familie, std::string_view zusatz = {});
    // The database file of the parameter definitions.
    std::string datenbankName();
    std::string textSchlüssel(std::int16_t textNummer);

    // Steps of procedures that have more than a few statements; each is declared here and implemented in its
    // procedure's file.
    // -- structure --
    // BildInit.
    void bibliothekBestimmen(basic::StatementTrap& trap);
    void eingabenSchließen(basic::StatementTrap& trap);
    void layoutKonstanten(basic::StatementTrap& trap);
    void platzieren(basic::StatementTrap& trap, platform::ChildId id, const entwurf::Rechteck& platz,
        Schrift schrift = Schrift::Behalten, Korrektur korrektur = {});
    void kinderPlatzieren(basic::StatementTrap& trap);
    void halbePlatzieren(
        basic::StatementTrap& trap, std::int16_t sollwert, std::int16_t schalter, std::int16_t zeichnung);
    void diagnosePlatzieren(basic::StatementTrap& trap);
    void laden(basic::StatementTrap& trap, platform::ChildId id);
    void sollwertzeileLaden(basic::StatementTrap& trap, std::int16_t feld);
    void schalterAnlegen(basic::StatementTrap& trap);
    void zeichnungenAnlegen(basic::StatementTrap& trap);
    void diagnosezeilenAnlegen(basic::StatementTrap& trap);
    void diagnosezeilenZeigen(basic::StatementTrap& trap);
    void tabelleAnlegen(basic::StatementTrap& trap);
    Korrektur nebenEingabe() const;
    Korrektur diagnoseKorrektur(std::int16_t zeile) const;
    // BildShow.
    void fußzeileLesen(basic::StatementTrap& trap);
    void fußzeileZeigen(basic::StatementTrap& trap);
    // SeiteUmschalten.
    void servoEinlesen(basic::StatementTrap& trap);
    void seitenteileZeigen(basic::StatementTrap& trap);
    void tasteSetzen(basic::StatementTrap& trap, std::uint8_t taste, const std::string& bild, bool frei);
    void tasteBebildern(basic::StatementTrap& trap, std::uint8_t taste, const std::string& bild);
    void tasteFreigeben(basic::StatementTrap& trap, std::uint8_t taste, bool frei);
    void tasteLeeren(basic::StatementTrap& trap, std::uint8_t taste);
    void diagnoseWahl(basic::StatementTrap& trap, const std::string& bild7, const std::string& bild8,
        bool frei, std::int16_t seite);
    void diagnoseWahlLeeren(basic::StatementTrap& trap);
    void tasteFärben(basic::StatementTrap& trap, std::uint8_t taste, bool aktiv);
    void blätterTasten(basic::StatementTrap& trap);
    void diagnoseTasten(basic::StatementTrap& trap);
    void parameterTasten(basic::StatementTrap& trap);
    void paraBeschriftungen(basic::StatementTrap& trap);
    void paraBeschriftung(basic::StatementTrap& trap, std::int16_t n);
    std::string layoutDatei(); // layout of the captions on the servo's picture
    std::string bibliotheksBild(std::string_view zusatz); // "Servo\Servo_Diag_1280.gif" for "_Diag_"
    // AdressenUmschalten.
    void hauptbereichTexte(basic::StatementTrap& trap);
    void textZeile(basic::StatementTrap& trap, std::int16_t textNummer, std::int16_t zeile, bool mitEinheit);
    void sollwertzeile(basic::StatementTrap& trap, std::int16_t feld);
    void schalterzeile(basic::StatementTrap& trap, std::int16_t feld);
    void zeichnungszeile(basic::StatementTrap& trap, std::int16_t feld);
    void mittigNeben(basic::StatementTrap& trap, platform::ChildId anzeige, platform::ChildId eingabe);
    void umbrechen(basic::StatementTrap& trap, std::int16_t feld, const std::string& beschriftung);
    void band(basic::StatementTrap& trap, std::int16_t feld, platform::ChildId eingabe);
    void zeigen(basic::StatementTrap& trap, platform::ChildId id, bool sichtbar);
    void indirekterText(platform::ChildId anzeige, std::int16_t textNummer);
    bool feldFehlt(std::int16_t feld);
    bool breiterAlsErlaubt(platform::ChildId anzeige, std::string_view text);
    std::string sprachtext(std::int16_t textNummer); // the shown servo's text in the current language
    // -- values --
    // Position of a field's definition in the shared table, 0 or less when it has none.
    std::int16_t definitionsPosition(const Familie& familie);
    // Key 11 leaves the page again, keys 10, 11 and 31 carry their normal texts.
    void tastenNormal(basic::StatementTrap& trap);
    using Sollwertgrenze = void (platform::Sollwert::*)(std::string_view);
    void sollwerteLesen(basic::StatementTrap& trap, std::string_view familie, FeldBereich felder);
    void grenzenLesen(
        basic::StatementTrap& trap, std::string_view familie, FeldBereich felder, Sollwertgrenze grenze);
    void schalterLesen(basic::StatementTrap& trap);
    void zeichnungenLesen(basic::StatementTrap& trap);
    void diagnoseLesen(basic::StatementTrap& trap);
    void sollwerteSchreiben(basic::StatementTrap& trap, std::string_view familie, FeldBereich felder);
    void schalterSchreiben(basic::StatementTrap& trap);
    void zeichnungenSchreiben(basic::StatementTrap& trap);
    // basic::Error when the input, a field or a drawing item, shows nothing of this servo.
    void nurGezeigtes(std::int16_t eingabe);
    double gezeigteZeichnung(std::int16_t feld);
    void sollwertDarstellen(basic::StatementTrap& trap, std::int16_t feld, bool frei, bool markenBehalten);
    void zeichnungDarstellen(basic::StatementTrap& trap, std::int16_t feld, bool frei, bool markenBehalten);
    void beschriftungDarstellen(basic::StatementTrap& trap, std::int16_t feld, bool frei);
    bool eingabeOffen(basic::StatementTrap& trap);
    void eingabenAbschalten(basic::StatementTrap& trap);
    void eingabePlatzieren(basic::StatementTrap& trap, std::string_view eingabe, std::int16_t feld);
    void definitionBearbeiten(basic::StatementTrap& trap, std::int16_t feld);
    void schalterUmlegen(basic::StatementTrap& trap, std::int16_t feld);
    void sollwertBearbeiten(basic::StatementTrap& trap, std::int16_t feld);
    void zeichnungBearbeiten(basic::StatementTrap& trap, std::int16_t item);
    void geändertFärben(basic::StatementTrap& trap);
    void zweitenModusUmschalten(basic::StatementTrap& trap);
    void servoWechseln(basic::StatementTrap& trap, std::int16_t schritt);
    void bestätigenOderBlättern(basic::StatementTrap& trap);
    void verwerfenOderVerlassen(basic::StatementTrap& trap);
    // The panel no longer remembers a servo: the next start opens the menu.
    void servoVergessen();
    // Opens screen machine x 100 + basis; error 6 beyond 16 bits.
    void bildschirmÖffnen(std::int16_t basis);

    config::Module module_;
    platform::ControlPlatform platform_;
    SeitenZustand zustand_;
};

} // namespace servopanel::servo_page

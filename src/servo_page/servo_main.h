#pragma once

#include "config/module.h"
#include "platform/control_platform.h"
#include "platform/hosted_control.h"
#include "servo_page/seiten_zustand.h"

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
    void IniLesen();
    void IniSchreiben();
    void WerteLesen(bool nurAuffrischen);
    void WerteSchreiben();
    void EingabeDarstellen(bool markenBehalten);
    void Sollwert_MouseDown(std::int16_t feld, std::int16_t taste, std::int16_t umschalt, float x, float y);
    void Eingabemaske_EingabeAenderung();
    void Eingabemaske_Eingabefertig();
    void IniEingabe_EingabeFertig();
    void IniEingabe_LostFocus();
    void FußzeileFreigabe(bool frei);
    void Fußzeile_TasteClick(std::int16_t taste);
    void Timer_Timer();
    void ScrollBar_NeuePos(std::int16_t neuePos);
    void ScrollbarAnzeigen();

private:
    // Children of the form by name, for one statement.
    platform::ControlRef kind(std::string_view name, std::int16_t index = platform::ChildId::noIndex)
    {
        return platform_.form.child({name, index});
    }

    display::GemeinsamerZustand& gemeinsam() { return module_.umfeld.zustand; }
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
    // -- values --

    config::Module module_;
    platform::ControlPlatform platform_;
    SeitenZustand zustand_;
};

} // namespace servopanel::servo_page

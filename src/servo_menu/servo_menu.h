#pragma once

#include "basic/statement_trap.h"
#include "config/module.h"
#include "platform/control_platform.h"
#include "platform/hosted_control.h"
#include "servo_menu/menue_zustand.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace servopanel::servo_menu {

// The menu of servo pictures: eight keys in two columns, a scroll bar, a footer. Every procedure has its own statement
// trap and returns normally, each in the file of its name.
class ServoMenu final : public platform::HostedControl {
public:
    ServoMenu(config::Module module, const platform::ControlPlatform& platform);

    // Seen by hosts.
    void initialize() override;
    void show() override;
    void terminate() override;
    basic::Variant get(const platform::Member& member) override;
    void put(const platform::Member& member, const basic::Variant& value) override;
    bool deliver(platform::ChildId child, std::string_view event, platform::Args args) override;
    platform::FormData form() const override;

    void BildInit(std::int16_t bildNummer); // builds the menu once
    std::int16_t BildInit();
    void BildShow(std::int16_t zeigen); // footer and captions, raises JetztAnzeigen, first page of keys
    std::int16_t BildShow();
    void SpracheGeandert(std::int16_t sprache); // the number itself is not used
    void UserControl_Terminate();
    // Offers the footer keys in use again (True), or withdraws keys 1 to 10 (False), as on the page. The menu edits
    // nothing, so none of its procedures calls this one.
    void FußzeileFreigabe(bool frei);
    void Aufbauen(); // pictures of the keys that the scroll position selects
    // taste in these: key 1 to 8; 0 is none, and does nothing.
    void TasteZeichnen(
        std::int16_t taste, bool gedrückt); // only when the key does not look like that already
    void TextAusgabe();
    void TextFontsAendern();
    // Key under a point in twips, 0 when none; the keys' edges belong to them.
    void WelcheTaste(float x, float y, std::int16_t& taste);
    void TasteGedrueckt(
        std::int16_t taste, bool gedrückt); // from the pointer's events; up on the same key: chosen
    void UserControl_MouseDown(std::int16_t button, std::int16_t shift, float x, float y);
    void UserControl_MouseMove(std::int16_t button, std::int16_t shift, float x, float y);
    void UserControl_MouseUp(std::int16_t button, std::int16_t shift, float x, float y);
    void Beschriftung_MouseDown(
        std::int16_t index, std::int16_t button, std::int16_t shift, float x, float y);
    void Beschriftung_MouseMove(
        std::int16_t index, std::int16_t button, std::int16_t shift, float x, float y);
    void Beschriftung_MouseUp(std::int16_t index, std::int16_t button, std::int16_t shift, float x, float y);
    void BildIm_MouseDown(std::int16_t index, std::int16_t button, std::int16_t shift, float x, float y);
    void BildIm_MouseMove(std::int16_t index, std::int16_t button, std::int16_t shift, float x, float y);
    void BildIm_MouseUp(std::int16_t index, std::int16_t button, std::int16_t shift, float x, float y);
    void ScrollBar_NeuePos(std::int16_t neuePos);
    void Fußzeile_TasteClick(std::int16_t taste);

    // What the menu keeps. For tests: some of it shows nowhere.
    const MenüZustand& zustand() const { return zustand_; }

private:
    platform::ControlRef kind(std::string_view name, std::int16_t index = platform::ChildId::noIndex)
    {
        return platform_.form.child({name, index});
    }
    display::GemeinsamerZustand& gemeinsam() { return module_.umfeld.zustand; }
    basic::ErrorSink& fehler() { return module_.umfeld.fehler; }

    // List position that a key shows at the scroll bar's present position, from 1 on; beyond ServoAnzahl: an empty key.
    std::int16_t listenPosition(std::int16_t taste);
    // Width of a key's frame in twips.
    float tastenBreite(std::int16_t taste) const;

    // Steps of procedures, each in its procedure's file.
    void bedienelementeAnordnen(basic::StatementTrap& trap);
    void tastenAnordnen(basic::StatementTrap& trap);
    void fußzeileLesen(basic::StatementTrap& trap);
    void fußzeileZeigen(basic::StatementTrap& trap);
    void tasteBauen(basic::StatementTrap& trap, std::int16_t taste, std::int16_t position);
    void bildBeschaffen(basic::StatementTrap& trap, std::int16_t servo, std::int16_t variante);
    void bildSkalieren(basic::StatementTrap& trap, const std::string& quelle);
    void kopieSichern(basic::StatementTrap& trap, const std::string& kopie, std::int16_t servo);
    void schriftÜbernehmen(basic::StatementTrap& trap, platform::ChildId ziel);
    void aufMenüBeziehen(basic::StatementTrap& trap, platform::ChildId feld, float& x, float& y);
    void rahmenZeichnen(basic::StatementTrap& trap, std::int16_t taste, std::int16_t einzug,
        std::int32_t erste, std::int32_t zweite);

    config::Module module_;
    platform::ControlPlatform platform_;
    MenüZustand zustand_;
};

} // namespace servopanel::servo_menu

#pragma once

#include "basic/arithmetic.h"
#include "config/module.h"
#include "platform/control_platform.h"
#include "platform/hosted_control.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace servopanel::servo_menu {

// The key grid in twips; unscaled, with sizes of its own for 800-pixel panels.
struct TastenRaster {
    basic::CheckedArray<float, 2> Spalte; // left edges
    basic::CheckedArray<float, 4> Zeile; // top edges
    float TastenHöhe = 0;
    float TastenBreite = 0; // left column
    float Maß3 = 0; // width of the right column's frame and hit area
    float Maß4 = 0; // distance of the caption from the key's left edge
    float Maß5 = 0; // height of the caption's strip
    float Maß6 = 0; // width of caption and source picture
    float Maß7 = 0; // height of the source picture
};

// One footer key F1 to F10 as configured for the machine.
struct MenüTaste {
    std::string Bild;
    bool Frei = false;
};

// A scroll that arrives while the page is being built is served by the running build.
struct Rollanforderung {
    std::int16_t Beschaeftigt = 0;
    std::int16_t Position = 0;
    std::int16_t Anforderungen = 0;
    std::int16_t Bedient = 0;
    bool Abbruch = false; // the running build stops before its next key
};

struct MenüZustand {
    std::int16_t BildNummer = 0;
    std::int16_t BildShow = 0;
    std::string Bibliothek;
    TastenRaster raster;
    basic::CheckedArray<MenüTaste, 10, 1> Tasten;
    Rollanforderung rollen;
    std::int16_t GedrückteTaste = 0; // 1 to 8, 0 none
    basic::CheckedArray<bool, 9> Gezeichnet; // by key, the look last drawn: True is pressed
};

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
    void FußzeileFreigabe(bool frei);
    void Aufbauen(); // pictures of the keys that the scroll position selects
    void TasteZeichnen(std::int16_t taste, bool gedrückt);
    void TextAusgabe();
    void TextFontsAendern();
    // Key under a point in twips, 0 when none; the keys' edges belong to them.
    void WelcheTaste(float x, float y, std::int16_t& taste);
    void TasteGedrueckt(std::int16_t taste, bool gedrückt);
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

private:
    platform::ControlRef kind(std::string_view name, std::int16_t index = platform::ChildId::noIndex)
    {
        return platform_.form.child({name, index});
    }
    display::GemeinsamerZustand& gemeinsam() { return module_.umfeld.zustand; }

    config::Module module_;
    platform::ControlPlatform platform_;
    MenüZustand zustand_;
};

} // namespace servopanel::servo_menu

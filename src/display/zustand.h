#pragma once

#include "basic/arithmetic.h"
#include "basic/variant.h"
#include "platform/db_engine.h"
#include "platform/error_display.h"
#include "platform/path_helper.h"
#include "platform/process_var_access.h"

#include <cstdint>
#include <memory>
#include <string>

namespace servopanel::display {

inline constexpr std::int16_t wahr = -1;
inline constexpr std::int16_t falsch = 0;

// The most servos that a machine can have.
inline constexpr std::int16_t höchsteServoAnzahl = 50;

// Pictures by servo number, 1 to 50.
struct BildSpeicher {
    basic::CheckedArray<basic::ObjectRef, höchsteServoAnzahl, 1> bild;
    basic::CheckedArray<std::int16_t, höchsteServoAnzahl, 1> geladen; // wahr or falsch
};

// What all controls of the library share. It belongs to the library, not to a control: a control that is created again
// finds the values of the one before. Everything starts as 0, False or empty.
struct GemeinsamerZustand {
    // Made by whoever needs them first.
    std::shared_ptr<platform::ProcessVarAccess> ProcessVarAccess;
    std::shared_ptr<platform::PathHelper> PathHelper;
    std::shared_ptr<platform::DBEngine> DBEngine;

    // Written by the start-up of Servo; AktServo also by the menu's choice and the page's keys.
    std::int16_t AktuelleMaschine = 0; // number of the machine whose servos are shown
    std::string MaschinenBez; // its designation, part of every variable name of a servo
    std::int16_t ServoAnzahl = 0; // active servos, 0 to 50
    basic::CheckedArray<std::int16_t, höchsteServoAnzahl, 1> ServoNr; // servo number by list position
    basic::CheckedArray<bool, höchsteServoAnzahl, 1> Diag2Servo; // by list position
    basic::CheckedArray<std::int16_t, höchsteServoAnzahl, 1>
        ServoPic; // picture variant by list position, at least 1
    std::int16_t AktServo = 0; // list position of the shown servo, 0 is none
    bool MitMenu = false;
    bool MitStoerung = false;
    bool MitMaschinenTyp = false;
    std::string MaschinenPrefix; // designation and "_", or empty
    std::int16_t PasswortStufe = 0; // access level at start-up
    std::int16_t SchriftStufe = 0; // 1 on 800-pixel panels, else 2; also the key frame's width in pixels

    // Written by HoleAufloesung.
    std::int16_t Aufloesung = 0; // panel width in pixels: 800, 1024 or 1280
    std::string AufloesungText; // the same in decimal, part of picture names
    float FaktorX = 0; // panel width by design width
    float FaktorY = 0;
    float TwipsProPixelX = 0;
    float TwipsProPixelY = 0;
    bool Arabisch = false; // right-to-left layout

    std::string TempVerzeichnis; // folder of the scaled pictures; written by the menu's BildInit

    // Written by the error reporter; the controls close the display at their end.
    std::shared_ptr<platform::ErrorDisplay> FehlerAnzeige;
    std::int16_t FehlerAnzahl = 0; // reports sent, stays at 32767

    BildSpeicher menüBilder; // scaled pictures of the menu, filled by Aufbauen
    BildSpeicher ladeBilder; // pictures as they are in the files, filled by BildLaden
};

} // namespace servopanel::display

#pragma once

#include "basic/arithmetic.h"
#include "config/mservo_modul.h"

#include <cstdint>
#include <string>

namespace servopanel::servo_page {

// The state of one parameter page, grouped by what changes together.

// Set by BildInit, read by everyone.
struct SeitenAufbau {
    std::int16_t BildNummer = 0;
    std::string Bibliothek; // the library's name: folder, files and text keys
    std::int16_t ZugriffsStufe = 0; // access level of the operator
    std::int16_t EingabeErlaubt = 0; // 0: the page is read-only for this user

    // Layout of captions beside their inputs, in twips: line height (kept for the panel's class; wrapped lines touch,
    // so nothing is measured by it), width beyond which a caption is wrapped, offset of the caption.
    std::int16_t Zeilenhöhe = 0;
    float TextBreite = 0;
    std::int16_t TextVersatz = 0;
    // Caption corrections for the reference widths 45 and 180 x FaktorY, in twips, snapped to whole pixels.
    std::int16_t KorrekturSchmal = 0;
    std::int16_t KorrekturBreit = 0;
};

// One footer key F1 to F10 as configured for the machine and the page.
struct FußzeilenTaste {
    std::string Bild; // picture file
    bool Benutzt = false;
};

// Filled by BildShow, kept up by SeiteUmschalten, read when keys are released.
struct FußzeilenZustand {
    basic::CheckedArray<FußzeilenTaste, 10, 1> Tasten;
    // The colours that keys start with, and the settings that a withdrawal saves; nothing restores them.
    basic::CheckedArray<std::int32_t, 11, 1> TastenEinstellung;
};

// Which servo and which of its pages is bound; written by the footer keys and SeiteUmschalten.
struct SeitenWahl {
    std::int16_t Seite = 0; // 0 parameters, 1 and 2 diagnosis
    bool ExternerServo = false; // read with each servo; nothing depends on it
    std::int16_t Sprache = 0; // language number last reported
};

// What the operator is doing; all Booleans -1 and 0.
struct Bearbeitung {
    basic::CheckedArray<bool, 50, 1> Marken; // by field number: changed or touched, not yet written
    // By field number, of drawing numbers by item: the input shows a value of this servo, read from the machine or entered.
    // What a failed read leaves standing may be another servo's and is never written.
    basic::CheckedArray<bool, 50, 1> Gezeigt;
    std::int16_t Geaendert = 0; // there are changes not yet written
    std::int16_t Bestaetigen = 0; // keys 10 and 11 stand for confirm and cancel
    std::int16_t ZweiterModus = 0; // a touch opens the definition editor
    std::int16_t AktiverSollwert = 0; // setpoint that the mask edits, 0 none
    std::int16_t AktiveZeichnung = 0; // item 41 to 46 that the mask edits, 0 none
    std::int16_t EditorZiel = 0; // field whose definition the editor edits
};

// Position of the main area; written by the scroll bar.
struct Rollzustand {
    std::int16_t Versatz = 0; // pixels
    bool ListenEnde = false;
    // A move that arrives while one runs is served by the running one.
    std::int16_t Beschaeftigt = 0;
    std::int16_t Angefordert = 0; // requested offset
    std::int16_t Anforderungen = 0;
    std::int16_t Bedient = 0;
};

struct SeitenZustand {
    SeitenAufbau aufbau;
    std::int16_t BildShow = 0; // the value last put
    FußzeilenZustand fußzeile;
    SeitenWahl wahl;
    Bearbeitung bearbeitung;
    Rollzustand rollen;
    basic::CheckedArray<config::ParamDef, 80> Definitionen; // by field number - 1; filled by IniLesen
};

} // namespace servopanel::servo_page

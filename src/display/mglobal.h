#pragma once

#include "basic/statement_trap.h"
#include "display/umfeld.h"
#include "platform/control.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace servopanel::display {

// How PosObjekt treats one control. Lengths in twips, already scaled by the caller; 0 means: scale what is there now
// from the design to the panel and snap it to whole pixels.
struct PosAngaben {
    float höhe = 0;
    float links = 0;
    float oben = 0;
    float breite = 0;
    bool schriftAnpassen = false;
    std::int16_t kleinsteSchrift = 8; // points
    std::int16_t entwurfsBreite = 1280; // pixels
    std::int16_t entwurfTwipsX = 15; // twips per pixel
    std::int16_t entwurfTwipsY = 15;
    bool ausrichtungBehalten = false; // no mirroring on right-to-left panels
};

// Resolution, positions, files, pictures and environment. Every procedure reports its own errors under its bare name
// and returns normally.
class MGlobal {
public:
    explicit MGlobal(Umfeld& umfeld)
        : umfeld_{umfeld}
    {
    }

    // Reads the panel's resolution and right-to-left flag and computes the scale factors from a design of this width in
    // pixels. Called by the shell's start-up, and by page and menu when they are built.
    void HoleAufloesung(std::int16_t entwurfsBreite);

    // Twips snapped down to whole steps of the screen; 0 after an error (design value 0, result beyond 16 bits).
    std::int16_t KorrekturTwipPix(
        float wert, bool waagrecht, std::int16_t entwurfTwipsX, std::int16_t entwurfTwipsY);

    // Places and sizes one control for this panel and adapts its font. object: what to place, such as a child of a form.
    void PosObjekt(platform::Control& objekt, const PosAngaben& angaben);

    // Full path of a project-relative file, or, after a message to the operator, the empty string when there is none.
    std::string HoleDateiNamen(std::string_view name);

    // The picture of a project-relative file, or, after a message to the operator, no picture. Reports nothing.
    basic::ObjectRef LadeBild(std::string_view name);

    // The library's own name, which its project folder and files carry too.
    std::string HoleOCXNamen();

    // An environment variable; empty when it is not set, 4096 blanks when it is too long.
    std::string GetDOSEnvironmentVariable(std::string_view name);

    // Loads a servo's picture into the load cache. Called by the page; reports as "BildLaden".
    void BildLaden(std::string_view bibliothek, std::int16_t servoNummer, std::int16_t variante);

private:
    void SchriftAnpassen(basic::StatementTrap& trap, platform::Control& objekt, const PosAngaben& angaben);

    Umfeld& umfeld_;
};

} // namespace servopanel::display

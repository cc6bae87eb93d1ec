#include "basic/conversions.h"
#include "display/namen.h"
#include "platform/facades/intrinsic.h"
#include "servo_menu/raster.h"
#include "servo_menu/servo_menu.h"

#include <optional>

namespace servopanel::servo_menu {

using basic::divide;
using basic::roundToInt32;
using basic::single;
using basic::StatementTrap;
using platform::Bildfeld;
using platform::Facade;

void ServoMenu::Aufbauen()
{
    StatementTrap trap{fehler(), "Me Aufbauen"};

    // 1. The list position that comes before the first key; without it there is no page to build.
    std::int16_t versatz = 0;
    if (!trap.condition([&] { return versatz = listenPosition(0), true; })) return;

    // 2. Key by key, until a newer position calls for another build.
    for (std::int16_t taste = 1; taste <= tastenZahl; ++taste) {
        if (trap.condition([&] { return zustand_.rollen.Abbruch; })) return;
        std::int16_t position = 0;
        if (!trap.condition([&] { return position = basic::add16(taste, versatz), true; })) continue;
        tasteBauen(trap, taste, position);
    }
}

void ServoMenu::tasteBauen(StatementTrap& trap, std::int16_t taste, std::int16_t position)
{
    auto& gem = gemeinsam();
    const auto beschriftung = [&] { return Facade{kind("Beschriftung", taste)}; };
    const auto bild = [&] { return Bildfeld{kind("BildIm", taste)}; };

    // 1. A key beyond the end of the list is hidden.
    if (position > gem.ServoAnzahl) {
        if (trap.condition([&] { return beschriftung().Visible(); })) {
            trap([&] { beschriftung().Visible(false); });
            trap([&] { bild().Visible(false); });
        }
        return;
    }

    // 2. The servo at this position. Positions and servo numbers beyond the lists fail with each statement that needs
    //    them: the key is shown, with the picture that it had.
    const auto servo = [&] { return gem.ServoNr[position]; };

    // 3. to 6. Its picture, unless the cache holds it already.
    if (trap.condition([&] { return gem.menüBilder.geladen[servo()] == display::falsch; }))
        bildBeschaffen(trap, servo(), gem.ServoPic[position]);

    // 7. Onto the key.
    trap([&] { gem.menüBilder.geladen[servo()] = display::wahr; });
    trap([&] { bild().Picture(gem.menüBilder.bild[servo()]); });

    // 8. Show the key.
    if (trap.condition([&] { return !beschriftung().Visible(); })) {
        trap([&] { beschriftung().Visible(true); });
        trap([&] { bild().Visible(true); });
    }
}

// Steps 4 to 6: into the menu cache, from the temporary folder or scaled from the source.
void ServoMenu::bildBeschaffen(StatementTrap& trap, std::int16_t servo, std::int16_t variante)
{
    auto& gem = gemeinsam();
    const auto pfad = [&](std::string_view name) { return display::pathHelper(module_.umfeld).path(name); };

    // 4. A picture that was drawn for the menu goes before the plain one.
    std::string name;
    trap([&] { name = display::servoBild(gem, zustand_.Bibliothek, servo, variante, true); });
    if (trap.condition([&] { return !module_.umfeld.platform.files.exists(pfad(name)); }))
        trap([&] { name = display::servoBild(gem, zustand_.Bibliothek, servo, variante, false); });

    // 5. A scaled copy of an earlier day is taken as it is.
    const std::string kopie = gem.TempVerzeichnis + "\\" + name;
    const std::optional<bool> vorhanden =
        trap.decision([&] { return module_.umfeld.platform.files.exists(kopie); });
    if (!vorhanden) return;
    if (*vorhanden) {
        trap([&] { gem.menüBilder.bild[servo] = module_.umfeld.platform.pictures.load(kopie); });
        return;
    }

    // 6. Otherwise it is made, kept for later starts, and taken from there.
    bildSkalieren(trap, name);
    kopieSichern(trap, kopie, servo);
}

void ServoMenu::bildSkalieren(StatementTrap& trap, const std::string& quelle)
{
    const auto& gem = gemeinsam();
    const TastenRaster& raster = zustand_.raster;
    const auto groß = [&](std::string_view name) { return Facade{kind(name)}; };
    const auto pixelX = [&](double twips) { return roundToInt32(divide(twips, double{gem.TwipsProPixelX})); };
    const auto pixelY = [&](double twips) { return roundToInt32(divide(twips, double{gem.TwipsProPixelY})); };

    // 6.1 The source as it is in the file.
    trap([&] {
        const std::string datei = display::pathHelper(module_.umfeld).path(quelle);
        Bildfeld{kind("TempPicQuelle")}.Picture(module_.umfeld.platform.pictures.load(datei));
    });

    // 6.2 A canvas with the key's proportions, on which the source has the scale that one of the design size would have.
    trap([&] {
        groß("TempPicZwischen")
            .Width(single(divide(double{groß("TempPicZiel").Width()} * double{groß("TempPicQuelle").Width()},
                double{raster.Maß6})));
    });
    trap([&] {
        groß("TempPicZwischen")
            .Height(
                single(divide(double{groß("TempPicZiel").Height()} * double{groß("TempPicQuelle").Height()},
                    double{raster.Maß7})));
    });

    // 6.3 The source onto the canvas: centred, standing on a small margin above its lower edge.
    trap([&] { platform_.surface.clear({"TempPicZwischen"}); });
    trap([&] {
        const double breite = double{groß("TempPicQuelle").Width()};
        const double höhe = double{groß("TempPicQuelle").Height()};
        const double x = (double{groß("TempPicZwischen").Width()} - breite) / 2.0;
        const double y = double{groß("TempPicZwischen").Height()} - höhe
            - gem.SchriftStufe * double{gem.TwipsProPixelY}
            - 3.0 * double{gem.TwipsProPixelY} * double{gem.FaktorY};
        platform_.surface.bitBlt(
            {"TempPicQuelle"}, {"TempPicZwischen"}, pixelX(x), pixelY(y), pixelX(breite), pixelY(höhe));
    });
    trap([&] { platform_.surface.refresh({"TempPicZwischen"}); });

    // 6.4 The canvas onto the key's size.
    trap([&] {
        platform_.surface.stretchBlt({"TempPicZwischen"}, {"TempPicZiel"},
            pixelX(double{groß("TempPicZwischen").Width()}), pixelY(double{groß("TempPicZwischen").Height()}),
            pixelX(double{groß("TempPicZiel").Width()}), pixelY(double{groß("TempPicZiel").Height()}));
    });
    trap([&] { platform_.surface.refresh({"TempPicZiel"}); });
}

void ServoMenu::kopieSichern(StatementTrap& trap, const std::string& kopie, std::int16_t servo)
{
    auto& gem = gemeinsam();
    platform::Files& files = module_.umfeld.platform.files;
    const std::string ordner = gem.TempVerzeichnis + "\\" + zustand_.Bibliothek;

    // 6.5 Nothing is saved for a page that is being replaced.
    if (trap.condition([&] { return zustand_.rollen.Abbruch; })) return;
    if (trap.condition([&] { return !files.exists(gem.TempVerzeichnis); }))
        trap([&] { files.createFolder(gem.TempVerzeichnis); });
    if (trap.condition([&] { return !files.exists(ordner); })) trap([&] { files.createFolder(ordner); });
    trap([&] { module_.umfeld.platform.pictures.save(*kind("TempPicZiel"), kopie); });
    // Saving takes a while: touches and scrolls are let in.
    trap([&] { module_.umfeld.platform.surroundings.letEventsRun(); });
    trap([&] { gem.menüBilder.bild[servo] = module_.umfeld.platform.pictures.load(kopie); });
}

} // namespace servopanel::servo_menu

#include "platform/facades/intrinsic.h"
#include "platform/facades/scroll_bar.h"
#include "servo_menu/raster.h"
#include "servo_menu/servo_menu.h"

#include "display/namen.h"

namespace servopanel::servo_menu {

using basic::single;
using basic::StatementTrap;
using platform::Facade;

void ServoMenu::BildInit(std::int16_t bildNummer)
{
    StatementTrap trap{fehler(), "Me BildInit Let"};
    auto& gem = gemeinsam();

    // 1. Keep the picture number.
    trap([&] { zustand_.BildNummer = bildNummer; });

    // 2. The library's name leads to its folder and files; other screens of the project read it from the variable.
    trap([&] { zustand_.Bibliothek = module_.global.HoleOCXNamen(); });
    trap([&] {
        display::WriteValue(module_.umfeld, display::interneVariable("ocxname"), zustand_.Bibliothek);
    });

    // 3. Resolution and scale factors.
    trap([&] { module_.global.HoleAufloesung(1280); });

    // 4. The menu fills the panel.
    trap([&] { platform_.surface.put(platform::names::Height, single(15360.0 * double{gem.FaktorY})); });
    trap([&] { platform_.surface.put(platform::names::Width, single(19200.0 * double{gem.FaktorX})); });

    // 5. Footer, heading, scroll bar and captions.
    bedienelementeAnordnen(trap);

    // 6. The key grid. The small panel's scroll bar stands where the narrower keys end.
    if (trap.condition([&] { return gem.Aufloesung == 800; }))
        trap([&] { Facade{kind("ScrollBar")}.Left(11445.0F); });
    trap([&] { zustand_.raster = tastenRaster(gem.Aufloesung); });

    // 7. Captions and pictures of the keys.
    tastenAnordnen(trap);

    // 8. The scroll bar's frame is as wide as the keys'.
    trap([&] { platform::ScrollBar{kind("ScrollBar")}.Rahmen(gem.SchriftStufe); });

    // 9. Background.
    trap([&] {
        const basic::ObjectRef bild =
            module_.global.LadeBild("Servo\\ServoMenu_" + gem.AufloesungText + ".bmp");
        platform_.surface.put(platform::names::Picture, bild);
    });

    // 10. Fonts of the captions.
    trap([&] { TextFontsAendern(); });

    // 11. Where the scaled pictures are kept.
    trap([&] { gem.TempVerzeichnis = module_.global.GetDOSEnvironmentVariable("TEMPVELM"); });
    if (trap.condition([&] { return gem.TempVerzeichnis.empty(); }))
        trap([&] { gem.TempVerzeichnis = "C:\\Temp"; });
    trap([&] { gem.TempVerzeichnis += "\\Velmora"; });

    // 12. The work picture is as large as a key's picture.
    trap([&] { Facade{kind("TempPicZiel")}.Width(Facade{kind("BildIm", 1)}.Width()); });
    trap([&] { Facade{kind("TempPicZiel")}.Height(Facade{kind("BildIm", 1)}.Height()); });
}

std::int16_t ServoMenu::BildInit() { return zustand_.BildNummer; }

void ServoMenu::bedienelementeAnordnen(StatementTrap& trap)
{
    const auto& gem = gemeinsam();
    const auto x = [&](double entwurf) { return single(entwurf * double{gem.FaktorX}); };
    const auto y = [&](double entwurf) { return single(entwurf * double{gem.FaktorY}); };

    trap([&] {
        module_.global.PosObjekt(
            *kind("Fußzeile"), {.höhe = y(1620), .links = x(0), .oben = y(13740), .breite = x(19200)});
    });
    trap([&] {
        module_.global.PosObjekt(*kind("Überschrift"),
            {.höhe = y(600), .links = x(105), .oben = y(1635), .breite = x(18990), .schriftAnpassen = true});
    });
    trap([&] {
        module_.global.PosObjekt(
            *kind("ScrollBar"), {.höhe = y(11265), .links = x(18285), .oben = y(2340), .breite = x(915)});
    });
    // A caption lies inside its key's frame. The keys are not scaled, so neither is what lies in them.
    for (std::int16_t taste = 1; taste <= tastenZahl; ++taste) {
        trap([&] {
            const TastenRaster raster = tastenRaster(gem.Aufloesung);
            module_.global.PosObjekt(*kind("Beschriftung", taste),
                {.höhe = single(double{raster.Maß5} - 5.0 * double{gem.TwipsProPixelY}),
                    .links = single(double{raster.Spalte[spalteDerTaste(taste)]} + double{raster.Maß4}),
                    .oben = single(double{raster.Zeile[zeileDerTaste(taste)]}
                        + gem.SchriftStufe * double{gem.TwipsProPixelY}),
                    .breite = raster.Maß6,
                    .schriftAnpassen = true});
        });
    }
}

void ServoMenu::tastenAnordnen(StatementTrap& trap)
{
    const auto& gem = gemeinsam();
    const TastenRaster& raster = zustand_.raster;

    for (std::int16_t taste = 2; taste <= tastenZahl; ++taste) {
        trap([&] {
            const double oben = double{Facade{kind("Beschriftung", 1)}.Top()};
            Facade{kind("Beschriftung", taste)}.Top(
                single(oben - double{raster.Zeile[0]} + double{raster.Zeile[zeileDerTaste(taste)]}));
        });
        if (spalteDerTaste(taste) == 0) continue;
        trap([&] {
            const double links = double{Facade{kind("Beschriftung", 1)}.Left()};
            Facade{kind("Beschriftung", taste)}.Left(
                single(links - double{raster.Spalte[0]} + double{raster.Spalte[1]}));
        });
    }

    // Inside the frame, and one pixel less, because the frame's right and bottom edges are drawn within the key.
    const double rahmenX = gem.SchriftStufe * double{gem.TwipsProPixelX};
    const double rahmenY = gem.SchriftStufe * double{gem.TwipsProPixelY};
    for (std::int16_t taste = 1; taste <= tastenZahl; ++taste) {
        trap([&] {
            Facade{kind("BildIm", taste)}.Left(
                single(double{raster.Spalte[spalteDerTaste(taste)]} + rahmenX));
        });
        trap([&] {
            Facade{kind("BildIm", taste)}.Top(single(double{raster.Zeile[zeileDerTaste(taste)]} + rahmenY));
        });
        trap([&] {
            Facade{kind("BildIm", taste)}.Width(
                single(double{raster.TastenBreite} - 2.0 * rahmenX - double{gem.TwipsProPixelX}));
        });
        trap([&] {
            Facade{kind("BildIm", taste)}.Height(
                single(double{raster.TastenHöhe} - 2.0 * rahmenY - double{gem.TwipsProPixelY}));
        });
    }
}

} // namespace servopanel::servo_menu

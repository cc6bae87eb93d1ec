#include "basic/conversions.h"
#include "display/namen.h"
#include "shell/servo.h"

#include <algorithm>

namespace servopanel::shell {

using basic::decimal;
using basic::toInt16;
using display::interneVariable;
using display::ReadValue;
using display::WriteValue;

namespace {

constexpr std::string_view countdown = "navi_password_countdown";

} // namespace

// What fails keeps the value it had; everything else is loaded all the same.
void Servo::gemeinsamenZustandLaden(basic::StatementTrap& trap)
{
    auto& gem = gemeinsam();
    auto& umfeld = module_.umfeld;

    // 1. The library's name, for the other screens of the project.
    trap([&] { bibliothek_ = module_.global.HoleOCXNamen(); });
    trap([&] { WriteValue(umfeld, interneVariable("ocxname"), bibliothek_); });

    // 2. Resolution, scale factors, right-to-left flag.
    trap([&] { module_.global.HoleAufloesung(1280); });

    // 3. to 5. The machine, its designation, its configured servos.
    trap([&] { gem.AktuelleMaschine = toInt16(ReadValue(umfeld, interneVariable("aktuelle_maschine"))); });
    trap([&] {
        gem.MaschinenBez = basic::toText(
            ReadValue(umfeld, "parameter<.maschinenbez_" + decimal(gem.AktuelleMaschine) + ">"));
    });
    trap([&] {
        gem.ServoAnzahl =
            toInt16(ReadValue(umfeld, "parameter<.servo_anzahl_" + decimal(gem.AktuelleMaschine) + ">"));
    });

    // 6. With navigation, every start counts on its password countdown.
    if (trap.condition(
            [&] { return basic::equalsBoolean(ReadValue(umfeld, "parameter<.mit_navi>"), true); })) {
        std::int16_t zähler = 0;
        trap([&] { zähler = toInt16(ReadValue(umfeld, interneVariable(countdown))); });
        trap([&] { zähler = basic::add16(zähler, 1); });
        trap([&] { WriteValue(umfeld, interneVariable(countdown), zähler); });
    }

    // 7. and 8. The servos that are not switched off.
    aktiveServosSuchen(trap);

    // 9. Project options.
    std::int16_t maschinenTyp = 0;
    trap([&] {
        maschinenTyp = module_.service.LoadIniInteger(
            "Project", "ServoWithMachineType", display::programmIni, true, false);
    });
    trap([&] {
        gem.MitStoerung =
            module_.service.LoadIniBoolean("Project", "ServoWithFault", display::programmIni, true, false);
    });

    // 10. Access level.
    trap([&] { gem.PasswortStufe = toInt16(ReadValue(umfeld, interneVariable("passwort"))); });

    // 11. Files by machine type.
    if (maschinenTyp > 0) {
        trap([&] { gem.MitMaschinenTyp = true; });
        trap([&] { gem.MaschinenPrefix = gem.MaschinenBez + "_"; });
    } else {
        trap([&] { gem.MitMaschinenTyp = false; });
        trap([&] { gem.MaschinenPrefix.clear(); });
    }
}

// The entries go by configured position, the arrays by active position: they part at the first passive servo.
void Servo::aktiveServosSuchen(basic::StatementTrap& trap)
{
    auto& gem = gemeinsam();
    auto& service = module_.service;
    const auto sektion = [&] { return decimal(gem.AktuelleMaschine) + "Machine"; };
    const std::int16_t konfiguriert = gem.ServoAnzahl;
    std::int16_t anzahl = 0;
    // A machine whose servos have no such variable shows all of them.
    basic::Variant passiv;

    for (std::int32_t i = 1; i <= konfiguriert; ++i) {
        std::int16_t servo = 0;
        trap([&] {
            servo =
                service.LoadIniInteger(sektion(), "Servo" + decimal(i), display::programmIni, true, false);
        });
        trap(
            [&] { passiv = ReadValue(module_.umfeld, display::servoVariable(gem, "_servopassiv_", servo)); });
        // A servo whose flag cannot be read goes by the flag read last.
        if (!trap.condition([&] { return basic::equalsBoolean(passiv, false); })) continue;
        trap([&] { anzahl = basic::add16(anzahl, 1); });
        trap([&] { gem.ServoNr[anzahl] = servo; });
        // The place comes first: a servo beyond the last one reads nothing.
        trap([&] {
            bool& zweiteDiagnose = gem.Diag2Servo[anzahl];
            zweiteDiagnose = service.LoadIniBoolean(
                sektion(), "Diag2Servo" + decimal(i), display::programmIni, true, false);
        });
        trap([&] {
            std::int16_t& variante = gem.ServoPic[anzahl];
            variante =
                service.LoadIniInteger(sektion(), "ServoPic" + decimal(i), display::programmIni, true, false);
        });
        trap([&] { gem.ServoPic[anzahl] = std::max(gem.ServoPic[anzahl], std::int16_t{1}); });
    }

    trap([&] { gem.ServoAnzahl = anzahl; });
}

} // namespace servopanel::shell

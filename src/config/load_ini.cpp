#include "config/mservice.h"

#include "basic/statement_trap.h"
#include "basic/text.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace servopanel::config {

namespace {

// What the look-up of a number gives when there is none.
constexpr std::int32_t keineZahl = -1;

// Far beyond 16 bits; larger numbers need not be told apart.
constexpr std::uint32_t sehrGroß = 1'000'000;

// The number at the start of a value: a sign and digits, hexadecimal ones after 0x; 0 when no digit comes first. An
// entry that is there but empty counts as absent.
std::int32_t zahl(const std::optional<std::string>& wert)
{
    if (!wert || wert->empty()) return keineZahl;
    std::string_view rest = *wert;
    const bool negativ = rest.front() == '-';
    if (negativ || rest.front() == '+') rest.remove_prefix(1);
    const bool hexadezimal = rest.starts_with("0x") || rest.starts_with("0X");
    if (hexadezimal) rest.remove_prefix(2);
    std::uint32_t ziffern = 0;
    const auto gelesen =
        std::from_chars(rest.data(), rest.data() + rest.size(), ziffern, hexadezimal ? 16 : 10);
    if (gelesen.ec == std::errc::result_out_of_range) ziffern = sehrGroß;
    const auto betrag = static_cast<std::int32_t>(std::min(ziffern, sehrGroß));
    return negativ ? -betrag : betrag;
}

// One look-up. The full path is made in the same statement, so that no other file is asked when that fails.
std::optional<std::string> nachschlagen(display::Umfeld& umfeld, std::string_view sektion,
    std::string_view eintrag, std::string_view datei, bool auflösen)
{
    if (!auflösen) return umfeld.platform.profile.text(datei, sektion, eintrag);
    return umfeld.platform.profile.text(display::pathHelper(umfeld).path(datei), sektion, eintrag);
}

// Names the file as the caller did.
void nichtGefunden(display::Umfeld& umfeld, basic::StatementTrap& trap, std::string_view sektion,
    std::string_view eintrag, std::string_view datei)
{
    trap([&] {
        umfeld.platform.messages.show("File '" + std::string{datei} + "' or Section [" + std::string{sektion}
            + "] or Entry '" + std::string{eintrag} + "' not found");
    });
}

} // namespace

std::int16_t MService::LoadIniInteger(
    std::string_view sektion, std::string_view eintrag, std::string_view datei, bool auflösen, bool melden)
{
    basic::StatementTrap trap{umfeld_.fehler, "LoadIniInteger"};

    std::int32_t wert = 0;
    trap([&] { wert = zahl(nachschlagen(umfeld_, sektion, eintrag, datei, auflösen)); });
    // LEGACY: a value of -1 that is really there cannot be told from a missing one.
    if (wert == keineZahl && melden) nichtGefunden(umfeld_, trap, sektion, eintrag, datei);
    std::int16_t ergebnis = 0;
    trap([&] { ergebnis = basic::narrow16(wert); });
    return ergebnis;
}

std::string MService::LoadIniString(
    std::string_view sektion, std::string_view eintrag, std::string_view datei, bool auflösen, bool melden)
{
    basic::StatementTrap trap{umfeld_.fehler, "LoadIniString"};

    std::string wert;
    trap([&] { wert = nachschlagen(umfeld_, sektion, eintrag, datei, auflösen).value_or(std::string{}); });
    if (wert.empty() && melden) nichtGefunden(umfeld_, trap, sektion, eintrag, datei);
    return wert;
}

bool MService::LoadIniBoolean(
    std::string_view sektion, std::string_view eintrag, std::string_view datei, bool auflösen, bool melden)
{
    basic::StatementTrap trap{umfeld_.fehler, "LoadIniBoolean"};

    std::string wert;
    trap([&] { wert = nachschlagen(umfeld_, sektion, eintrag, datei, auflösen).value_or(std::string{}); });
    const std::string gross = basic::upperCase(wert);
    if (melden && gross != "TRUE" && gross != "FALSE") nichtGefunden(umfeld_, trap, sektion, eintrag, datei);
    return gross == "TRUE";
}

} // namespace servopanel::config

#include "shell/fehler_melden.h"

#include "basic/conversions.h"

#include <limits>
#include <memory>

namespace servopanel::shell {

FehlerMelder::FehlerMelder(const platform::LibraryPlatform& platform, display::GemeinsamerZustand& zustand)
    : platform_{platform}
    , zustand_{zustand}
{
}

void FehlerMelder::report(const basic::Error& error, std::string_view procedure) noexcept
{
    if (meldet_) return;
    meldet_ = true;
    try {
        melden(error, procedure);
    } catch (...) {
        // There is no display, so there is nobody left to tell. The next report tries again.
    }
    meldet_ = false;
}

void FehlerMelder::melden(const basic::Error& error, std::string_view procedure)
{
    // 1. The display, when there is none yet or none any more.
    if (!zustand_.FehlerAnzeige) zustand_.FehlerAnzeige = platform_.objects.createErrorDisplay();
    if (!zustand_.FehlerAnzeige) return;

    // 2. The composed report.
    const std::string text = "###U:" + zusatz.U + "### ###B:" + (zusatz.B ? "true" : "false")
        + "### ###F:" + basic::decimal(std::int32_t{zusatz.F}) + "###" + std::string{procedure};

    // 3. Send it. The display may close itself, or be closed with a control, while it takes the report.
    const std::shared_ptr<platform::ErrorDisplay> anzeige = zustand_.FehlerAnzeige;
    try {
        const std::string quelle = error.source.empty() ? platform_.surroundings.libraryName() : error.source;
        anzeige->ErrMessage(error.number, quelle, error.description, text);
    } catch (...) {
        // This report is lost. The display stays: it is there, and has to be closed at a control's end.
    }

    // 4. Count it.
    if (zustand_.FehlerAnzahl < std::numeric_limits<std::int16_t>::max()) ++zustand_.FehlerAnzahl;
}

} // namespace servopanel::shell

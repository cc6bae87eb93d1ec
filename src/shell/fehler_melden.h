#pragma once

#include "basic/error.h"
#include "display/zustand.h"
#include "platform/library_platform.h"
#include "shell/meldungs_zusatz.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace servopanel::shell {

// Passes every error report to the error display of the HMI installation, which is made at the first report and again
// when it was closed. Never throws. A report that arises while one is being passed on, that finds no display, or that the
// display refuses, is lost.
class FehlerMelder final : public basic::ErrorSink {
public:
    FehlerMelder(const platform::LibraryPlatform& platform, display::GemeinsamerZustand& zustand);

    void report(const basic::Error& error, std::string_view procedure) noexcept override;

    MeldungsZusatz zusatz;

private:
    void melden(const basic::Error& error, std::string_view procedure);

    platform::LibraryPlatform platform_;
    display::GemeinsamerZustand& zustand_;
    bool meldet_ = false;
};

} // namespace servopanel::shell

#pragma once

namespace servopanel::monkey {

// Leaves a panel running for this many days in fast motion, with machines that answer and with none that does, and
// prints what was played and held. Whether the memory stayed as it was. Needs a QApplication.
bool playDaysOnPanel(unsigned days);

} // namespace servopanel::monkey

#pragma once

namespace servopanel::monkey {

// Plays this many days in fast motion, with a link to the machine and with a dead one, and prints what was played and
// held. Whether the memory stayed as it was after the first hour.
bool playDays(unsigned days);

} // namespace servopanel::monkey

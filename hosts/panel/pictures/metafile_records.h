#pragma once

#include <QByteArray>

namespace servopanel::panel {

// Looks through the records of a metafile before the reader gets it, because the reader believes what a record says
// about itself. Sound means: every record lies within the file and is as long as what it announces, and the last one is
// the end. The sizes that the header states are set to what is there; programs write them carelessly.
// False when the file is not sound; data is then partly corrected.
bool makeSound(QByteArray& data);

} // namespace servopanel::panel

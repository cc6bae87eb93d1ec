#pragma once

#include <QPainter>
#include <QString>

namespace servopanel::panel {

// Whether a text has a letter of a script that runs from right to left. The text as a whole then runs that way, also
// when it begins with a Latin word; numbers and units by themselves run from left to right in every language.
bool runsRightToLeft(const QString& text);

// What is drawn for a text, or a part of one, that runs as given: digits as the language has them; from right to left
// numbers, with sign and unit, keep their order ("-12.5 mm" stays so). Only drawing needs it, no value or text has it.
QString forDrawing(const QString& text, bool rightToLeft);

// Flags for QPainter::drawText that keep the text in its own order and put it where the alignment says: left and right
// change places on a widget from right to left unless the alignment is absolute.
int drawingFlags(Qt::Alignment alignment, Qt::LayoutDirection widget, bool rightToLeft);

// The direction of the widget that is being painted. Painters themselves do not know it.
Qt::LayoutDirection directionOf(const QPainter& painter);

} // namespace servopanel::panel

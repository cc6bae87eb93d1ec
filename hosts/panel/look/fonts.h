#pragma once

#include <QFont>
#include <QPainter>
#include <QString>

namespace servopanel::panel {

// The font of the panel's language at a height in pixels.
QFont panelFont(int pixels, bool bold = false);

// The font of digits and signs, which look the same in every language.
QFont valueFont(int pixels, bool bold = false);

// A font of the library: size in points of 20 twips.
QFont libraryFont(const QString& name, float points, bool bold);

// The font, made smaller in steps down to 70 % until the text fits into the width.
QFont fitted(const QFont& font, const QString& text, int width);

// Draws one line of text, made smaller or in the end cut off with "…" where it does not fit. Left and right change places
// on a widget from right to left, unless the alignment is absolute.
void drawFitted(QPainter& painter, const QRect& place, int alignment, const QFont& font, const QString& text);

// Width of a line of text as it is drawn, with the digits and the order that the language gives it.
int drawnWidth(const QFont& font, const QString& text);

// A height in proportion to the space at hand, kept within limits; all in pixels.
int scaled(double share, int whole, int least, int most);

} // namespace servopanel::panel

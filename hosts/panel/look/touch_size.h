#pragma once

#include "machine/screen_rows.h"

class QSize;
class QWidget;

namespace servopanel::panel {

// How large things on the screen are under a finger.

// The diagonal that panels of this width in pixels usually have, inches.
double usualDiagonal(int width);
// The stage, which all of a panel's widgets stand on, is this large. inches: of the diagonal. Where that is news, what
// stands on the stage lays itself out anew.
void stateDiagonal(QWidget& stage, double inches);
// The stage that a widget stands on. A widget outside of panels stands on its own window, which has the usual diagonal.
QWidget& stageOf(QWidget& widget);
const QWidget& stageOf(const QWidget& widget);

// The side of one pixel of a screen.
double millimetresPerPixel(const QSize& screen, double inches);
// The side of one pixel where this widget stands.
double millimetresPerPixel(const QWidget& widget);

// The least side of what a finger shall hit, in pixels: 9 mm.
int leastTouch(const QWidget& widget);
using machine::leastTouchMillimetres;

} // namespace servopanel::panel

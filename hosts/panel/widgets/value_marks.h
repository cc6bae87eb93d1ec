#pragma once

#include <QColor>
#include <QPainter>
#include <QRect>

namespace servopanel::panel {

// The small signs that tell the state of a value without colour: each has a shape of its own.

// What stands beside a value. Several may hold at once.
struct ValueMarks {
    bool changed = false; // entered by the operator and not yet written
    bool locked = false; // may not be changed at this access level
    bool stale = false; // the machine could not be asked; the last value is shown
    friend bool operator==(const ValueMarks&, const ValueMarks&) = default;
};

// The face of a stale field, below its text: hatched all over.
void drawHatching(QPainter& painter, const QRect& field);
// Whether the signs of a field have room beside its digits. Where they have not, as in the parts of a drawing number, a
// stale field has a dashed border instead of its sign, and the others are smaller.
bool hasRoomForSigns(const QRect& field);
// The signs at the left of a field, where values aligned to the right leave space: changed a triangle in the top corner,
// stale a warning at the top, locked a padlock at the bottom. They keep their side in every direction of writing, because
// the values do.
void drawMarks(QPainter& painter, const QRect& field, const ValueMarks& marks);

// How strongly a stale value's ink is faded.
QColor staleInk(const QColor& ink);

void drawTick(QPainter& painter, const QRect& place, const QColor& ink);
void drawCross(QPainter& painter, const QRect& place, const QColor& ink);
// A triangle with an exclamation mark.
void drawWarning(QPainter& painter, const QRect& place, const QColor& ink);
// Three dots in a row: something goes on.
void drawDots(QPainter& painter, const QRect& place, const QColor& ink);
void drawPadlock(QPainter& painter, const QRect& place, const QColor& ink);

} // namespace servopanel::panel

#pragma once

#include <QImage>

namespace servopanel::look {

// How much two pictures of the panel differ to the eye. A pixel counts when no pixel of the other picture at its place
// or beside it looks the same, in either direction: letters that another version of a font renderer puts a fraction of
// a pixel further count for nothing, a letter more or less does.
struct Comparison {
    bool isSameSize = false;
    int pixels = 0; // that count
    QRect where; // around all of them
    QImage marked; // the second picture, faint, with what counts in red
    bool isSame() const;
};
Comparison compare(const QImage& reference, const QImage& now);

// Fewer single pixels than this are no difference. The point of a number has more.
inline constexpr int mostStrayPixels = 3;

// Reference, now and the difference side by side.
QImage sideBySide(const QImage& reference, const QImage& now, const Comparison& comparison);

} // namespace servopanel::look

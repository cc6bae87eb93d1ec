#pragma once

#include <QByteArray>
#include <QImage>
#include <QPainter>

namespace servopanel::panel {

// What metafiles do with bitmaps, on an image that is transparent where nothing was drawn.

// A bitmap as it lies in memory, without the header of a file; a null image when it is broken or has too many pixels.
QImage packedBitmap(const QByteArray& packed, qint64 mostPixels);

// Puts a part of a bitmap onto the image. Pictures with transparent parts consist of a mask that is "and"ed and of the
// picture that is "or"ed: white leaves what is there in the one, black in the other. operation: the raster operation's
// number; those that are not for pictures copy.
void combine(QPainter& painter, QImage& image, const QRectF& where, const QImage& source, const QRect& part,
    std::uint32_t operation);

// Turns the colours of what was drawn into their opposites.
void invert(QPainter& painter, QImage& image, const QRect& where);

} // namespace servopanel::panel

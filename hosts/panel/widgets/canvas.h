#pragma once

#include <QColor>
#include <QImage>
#include <QPoint>

namespace servopanel::panel {

// The retained face of a picture box or of a whole control: a background colour, a picture on it at the top left, and
// what was drawn above both. Changing the size keeps what was drawn as far as it fits. All in pixels.
class Canvas {
public:
    void setBackground(const QColor& colour);
    void resize(QSize size);
    void setPicture(const QImage& picture);
    const QImage& picture() const { return picture_; }

    // Takes away what was drawn; the picture stays.
    void clear();
    // A straight line whose end point is not painted.
    void line(QPoint from, QPoint to, const QColor& colour);
    // A filled box with both corners.
    void box(QPoint one, QPoint other, const QColor& colour);
    void copy(const QImage& from, QPoint to, QSize size);
    // The top left part of an image, averaged onto a size.
    void stretch(const QImage& from, QSize part, QSize size);

    const QImage& image() const { return image_; }

private:
    QColor background_{0xC0, 0xC0, 0xC0};
    QImage picture_;
    QImage image_;
};

} // namespace servopanel::panel

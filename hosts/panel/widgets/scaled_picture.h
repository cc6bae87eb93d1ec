#pragma once

#include <QImage>
#include <QPainter>

namespace servopanel::panel {

// A picture that is drawn smaller than it is, also through a zoom: averaged once to the pixels of the screen, so that
// fine lines neither break nor flicker.
class ScaledPicture {
public:
    void set(const QImage& picture);
    const QImage& picture() const { return picture_; }

    // In the middle of the place, never larger than the picture's own size.
    void draw(QPainter& painter, const QRect& place);

private:
    QImage picture_;
    QImage scaled_;
};

} // namespace servopanel::panel

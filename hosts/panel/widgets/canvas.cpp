#include "panel/widgets/canvas.h"

#include <QPainter>

#include <algorithm>
#include <cstdlib>

namespace servopanel::panel {

void Canvas::setBackground(const QColor& colour)
{
    background_ = colour;
    clear();
}

void Canvas::resize(QSize size)
{
    if (image_.size() == size) return;
    const QImage before = image_;
    image_ = size.isEmpty() ? QImage{} : QImage{size, QImage::Format_RGB32};
    clear();
    if (image_.isNull() || before.isNull()) return;
    QPainter{&image_}.drawImage(0, 0, before);
}

void Canvas::setPicture(const QImage& picture)
{
    picture_ = picture;
    clear();
}

void Canvas::clear()
{
    if (image_.isNull()) return;
    image_.fill(background_);
    if (!picture_.isNull()) QPainter{&image_}.drawImage(0, 0, picture_);
}

void Canvas::line(QPoint from, QPoint to, const QColor& colour)
{
    if (image_.isNull()) return;
    // Step along the longer side; the last step, which would reach the end point, is left out.
    const int dx = to.x() - from.x();
    const int dy = to.y() - from.y();
    const int steps = std::max(std::abs(dx), std::abs(dy));
    for (int step = 0; step < steps; ++step) {
        const QPoint at{
            from.x() + qRound(double(dx) * step / steps), from.y() + qRound(double(dy) * step / steps)};
        if (image_.valid(at)) image_.setPixelColor(at, colour);
    }
}

void Canvas::box(QPoint one, QPoint other, const QColor& colour)
{
    if (image_.isNull()) return;
    const QPoint first{std::min(one.x(), other.x()), std::min(one.y(), other.y())};
    const QPoint last{std::max(one.x(), other.x()), std::max(one.y(), other.y())};
    QPainter{&image_}.fillRect(QRect{first, last}, colour);
}

void Canvas::copy(const QImage& from, QPoint to, QSize size)
{
    if (image_.isNull() || from.isNull()) return;
    QPainter{&image_}.drawImage(to, from, QRect{{0, 0}, size.boundedTo(from.size())});
}

void Canvas::stretch(const QImage& from, QSize part, QSize size)
{
    if (image_.isNull() || from.isNull() || part.isEmpty() || size.isEmpty()) return;
    const QImage source = part == from.size() ? from : from.copy(QRect{{0, 0}, part});
    const QImage scaled = source.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QPainter{&image_}.drawImage(0, 0, scaled);
}

} // namespace servopanel::panel

#include "panel/widgets/scaled_picture.h"

namespace servopanel::panel {

void ScaledPicture::set(const QImage& picture)
{
    picture_ = picture;
    scaled_ = {};
}

void ScaledPicture::draw(QPainter& painter, const QRect& place)
{
    QSize size = picture_.size();
    if (size.width() > place.width() || size.height() > place.height())
        size.scale(place.size(), Qt::KeepAspectRatio);
    if (size.isEmpty()) return;
    QRect middle{{0, 0}, size};
    middle.moveCenter(place.center());

    const QSize pixels = painter.deviceTransform().mapRect(QRectF{middle}).size().toSize();
    if (pixels.width() >= picture_.width() || pixels.isEmpty()) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform, pixels != picture_.size());
        painter.drawImage(middle, picture_);
        return;
    }
    if (scaled_.size() != pixels)
        scaled_ = picture_.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    painter.drawImage(middle, scaled_);
}

} // namespace servopanel::panel

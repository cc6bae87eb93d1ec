#pragma once

#include <QRect>
#include <QWidget>

namespace servopanel::panel {

// A place inside a widget that is reckoned from left to right, as it stands in the widget's direction of writing.
inline QRect mirroredIn(const QWidget& widget, const QRect& place)
{
    if (!widget.isRightToLeft()) return place;
    return {widget.width() - place.left() - place.width(), place.top(), place.width(), place.height()};
}

// The side on which a line begins, and the one on which it ends.
inline Qt::Alignment leading(const QWidget& widget)
{
    return (widget.isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute;
}
inline Qt::Alignment trailing(const QWidget& widget)
{
    return (widget.isRightToLeft() ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignAbsolute;
}

} // namespace servopanel::panel

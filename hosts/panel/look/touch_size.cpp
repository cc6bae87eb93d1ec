#include "panel/look/touch_size.h"

#include <QCoreApplication>
#include <QResizeEvent>
#include <QVariant>
#include <QWidget>

#include <cmath>

namespace servopanel::panel {

namespace {

constexpr char diagonalProperty[] = "diagonalInches";
constexpr double millimetresPerInch = 25.4;

// The stage, or the outermost widget.
const QWidget& ground(const QWidget& widget)
{
    const QWidget* each = &widget;
    while (each->parentWidget() != nullptr && !each->property(diagonalProperty).isValid())
        each = each->parentWidget();
    return *each;
}

} // namespace

double usualDiagonal(int width) { return width >= 1280 ? 19 : 15; }

void stateDiagonal(QWidget& stage, double inches)
{
    const QVariant before = stage.property(diagonalProperty);
    if (before.isValid() && before.toDouble() == inches) return;
    stage.setProperty(diagonalProperty, inches);
    // As after a change of their size, which is what it is for whoever reckons in millimetres.
    for (QWidget* each : stage.findChildren<QWidget*>()) {
        QResizeEvent event{each->size(), each->size()};
        QCoreApplication::sendEvent(each, &event);
        each->update();
    }
}

QWidget& stageOf(QWidget& widget) { return const_cast<QWidget&>(ground(widget)); }
const QWidget& stageOf(const QWidget& widget) { return ground(widget); }

double millimetresPerPixel(const QSize& screen, double inches)
{
    const double pixels = std::hypot(screen.width(), screen.height());
    return pixels > 0 ? inches * millimetresPerInch / pixels : 0;
}

double millimetresPerPixel(const QWidget& widget)
{
    const QWidget& stage = ground(widget);
    const QVariant stated = stage.property(diagonalProperty);
    return millimetresPerPixel(
        stage.size(), stated.isValid() ? stated.toDouble() : usualDiagonal(stage.width()));
}

int leastTouch(const QWidget& widget)
{
    const double side = millimetresPerPixel(widget);
    // A widget that stands nowhere yet has no size to go by.
    return side > 0 ? static_cast<int>(std::ceil(leastTouchMillimetres / side - 1e-6)) : 0;
}

} // namespace servopanel::panel

#include "panel/trends/trend_mark.h"

#include "panel/look/colours.h"

#include <QEvent>
#include <QPainter>

namespace servopanel::panel {

namespace {
constexpr int margin = 5; // pixels from the field's edge
}

TrendMark::TrendMark(TextView& field)
    : QWidget{&field}
    , field_{field}
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    field.installEventFilter(this);
    place();
}

void TrendMark::setOn(bool on)
{
    on_ = on;
    // Text in the middle of a wide field leaves less room than one at its end.
    const int room = (field_.width() - field_.textSize().width()) / 2;
    setVisible(on_ && room > width() + margin);
}

void TrendMark::place()
{
    const int height = std::clamp(field_.height() / 2, 7, 14);
    const int width = height * 3 / 2;
    setGeometry(margin, (field_.height() - height) / 2, width, height);
}

bool TrendMark::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Resize) place();
    return false;
}

void TrendMark::paintEvent(QPaintEvent*)
{
    // There stands the sign of a stale value, whose trend has just broken off.
    if (field_.marks().stale) return;
    QPainter painter{this};
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen{colours::accent, 1.5});
    const double w = width() - 2;
    const double h = height() - 2;
    painter.drawPolyline(QPolygonF{{{1, 1}, {1, 1 + h}, {1 + w, 1 + h}}});
    painter.drawPolyline(QPolygonF{{{1 + w * 0.15, 1 + h * 0.75}, {1 + w * 0.4, 1 + h * 0.35},
        {1 + w * 0.65, 1 + h * 0.6}, {1 + w, 1 + h * 0.1}}});
}

} // namespace servopanel::panel

#include "panel/look/wrapped_text.h"

#include <QFontMetrics>
#include <QTextLayout>
#include <QTextOption>

namespace servopanel::panel {

namespace {

// The layout of a text, with its lines one below the other.
void layOut(QTextLayout& layout, Qt::Alignment alignment, int width)
{
    QTextOption option{alignment};
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.setCacheEnabled(true);
    const int height = QFontMetrics{layout.font()}.height();
    layout.beginLayout();
    int top = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, static_cast<qreal>(top)});
        top += height;
    }
    layout.endLayout();
}

QString lines(QString text) { return text.replace(u'\n', QChar::LineSeparator).remove(u'\r'); }

} // namespace

int wrappedHeight(const QString& text, const QFont& font, int width)
{
    QTextLayout layout{lines(text), font};
    layOut(layout, Qt::AlignLeft, width);
    return layout.lineCount() * QFontMetrics{font}.height();
}

void drawWrapped(QPainter& painter, const QRect& place, const QRect& seen, Qt::Alignment alignment,
    const QFont& font, const QString& text)
{
    QTextLayout layout{lines(text), font};
    layOut(layout, alignment, place.width());
    const int height = QFontMetrics{font}.height();
    for (int i = 0; i < layout.lineCount(); ++i) {
        const int top = place.top() + i * height;
        if (top >= seen.top() && top + height - 1 <= seen.bottom())
            layout.lineAt(i).draw(&painter, place.topLeft());
    }
}

} // namespace servopanel::panel

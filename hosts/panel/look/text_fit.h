#pragma once

#include <QFont>
#include <QPainter>
#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

namespace servopanel::panel {

// The smallest height of letters that an operator reads at arm's length: 8 points, in pixels of every panel.
inline constexpr int leastTextPixels = 11;

// How a text is brought into a rectangle: on one line or wrapped, made smaller down to a height that can still be read,
// and in the end cut off with "…" between two characters. However long the text is, only what may fit is looked at.
struct TextFit {
    QFont font;
    QStringList lines;
    bool elided = false; // something of the text is not seen

    // width and height of the rectangle, pixels. The font is never made smaller than leastPixels.
    static TextFit oneLine(const QString& text, const QFont& font, QSize place, int leastPixels);
    static TextFit wrapped(const QString& text, const QFont& font, QSize place, int leastPixels);

    // The colour is that of the painter's pen. Left and right change places on a widget from right to left, unless the
    // alignment is absolute.
    // Lines that do not lie within seen as a whole are left out, because half a line cannot be read. False: something of
    // the text is not seen; a painter that listens is told of it.
    bool draw(QPainter& painter, const QRect& place, Qt::Alignment alignment,
        const std::optional<QRect>& seen = {}) const;
};

// A paint engine that is this as well is told of every text of which something is not seen.
class LeftOutListener {
public:
    virtual ~LeftOutListener() = default;
    // text: as far as it was looked at, with "…" where it was cut.
    virtual void leftOut(const QString& text) = 0;
};

// From one line of a text to the next, pixels. Letters that run from right to left reach further than the font says.
int lineHeight(const QFont& font, bool rightToLeft);

// The lines of a text: broken between words, and within a word that is longer than a line. A line break in the text is
// one on the screen. width: pixels.
QStringList brokenIntoLines(const QString& text, const QFont& font, int width);

} // namespace servopanel::panel

#include "look/painted_text.h"

#include "panel/look/text_fit.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>

#include <algorithm>
#include <iterator>

namespace servopanel::look {

namespace {

// Takes texts down and lets everything else pass.
class Notes : public QPaintEngine, public panel::LeftOutListener {
public:
    Notes(Painting& painting, const QRectF& widget)
        : QPaintEngine{AllFeatures}
        , painting_{painting}
        , widget_{widget}
    {
    }
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override { }
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override { }
    void drawPath(const QPainterPath&) override { }
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override { }
    void drawPolygon(const QPoint*, int, PolygonDrawMode) override { }
    Type type() const override { return User; }
    void leftOut(const QString& text) override { painting_.leftOut.push_back(text); }

    void drawTextItem(const QPointF& at, const QTextItem& item) override
    {
        // Signs that only order the text leave no ink.
        QString text = item.text();
        text.remove(QChar{0x2066}).remove(QChar{0x2068}).remove(QChar{0x2069});
        if (text.trimmed().isEmpty()) return;
        // Blanks before it are none either.
        const auto inked =
            std::find_if(text.cbegin(), text.cend(), [](QChar sign) { return !sign.isSpace(); });
        const auto before = std::distance(text.cbegin(), inked);
        const QFontMetricsF metrics{item.font()};
        QRectF ink = metrics.tightBoundingRect(text.mid(before));
        ink.translate(metrics.horizontalAdvance(text.left(before)), 0);
        // A part of an Arabic word measures differently on its own; its advance is what was laid out.
        if (item.renderFlags().testFlag(QTextItem::RightToLeft)) {
            // Blanks at its end stand at the left.
            const auto blanks = [&](auto begin, auto end) {
                const auto first = std::find_if(begin, end, [](QChar sign) { return !sign.isSpace(); });
                return static_cast<double>(std::distance(begin, first)) * metrics.horizontalAdvance(u' ');
            };
            ink.setLeft(blanks(text.crbegin(), text.crend()));
            ink.setRight(item.width() - blanks(text.cbegin(), text.cend()));
        }
        const QTransform toWidget = painter()->deviceTransform();
        QRectF room = widget_;
        if (painter()->hasClipping()) room &= toWidget.mapRect(painter()->clipBoundingRect());
        painting_.texts.push_back(
            {text, item.font(), painter()->pen().color(), toWidget.mapRect(ink.translated(at)), room});
    }

private:
    Painting& painting_;
    QRectF widget_;
};

class NotePad : public QPaintDevice {
public:
    NotePad(Painting& painting, const QWidget& widget)
        : engine_{painting, QRectF{widget.rect()}}
        , widget_{widget}
    {
    }
    QPaintEngine* paintEngine() const override { return &engine_; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth: return widget_.width();
        case PdmHeight: return widget_.height();
        case PdmDevicePixelRatio: return 1;
        case PdmDevicePixelRatioScaled: return static_cast<int>(devicePixelRatioFScale());
        case PdmDepth: return 32;
        case PdmNumColors: return INT_MAX;
        case PdmDpiX:
        case PdmPhysicalDpiX: return widget_.logicalDpiX();
        case PdmDpiY:
        case PdmPhysicalDpiY: return widget_.logicalDpiY();
        default: return 0;
        }
    }

private:
    mutable Notes engine_;
    const QWidget& widget_;
};

} // namespace

Painting paintingOf(QWidget& widget)
{
    Painting painting;
    NotePad pad{painting, widget};
    widget.render(&pad, {}, {}, QWidget::RenderFlags{});
    return painting;
}

} // namespace servopanel::look

#include "look/geometry.h"

#include "panel/look/contrast.h"

#include <QGlyphRun>
#include <QTextLayout>

#include <algorithm>
#include <cxxabi.h>
#include <iomanip>
#include <map>
#include <memory>
#include <sstream>

namespace servopanel::look {

namespace {

constexpr double anyHeight = 1e6;
constexpr double tolerance = 1.0; // pixels by which antialiasing and side bearings may reach over

std::string text(const QRect& place)
{
    std::ostringstream out;
    out << '[' << place.left() << ',' << place.top() << ' ' << place.width() << 'x' << place.height() << ']';
    return out.str();
}

std::string text(const QRectF& place) { return text(place.toAlignedRect()); }

std::string quoted(const QString& text) { return '"' + text.toStdString() + '"'; }

bool isWithin(const QRectF& inner, const QRectF& outer)
{
    return outer.adjusted(-tolerance, -tolerance, tolerance, tolerance).contains(inner);
}

bool overlap(const QRectF& one, const QRectF& other)
{
    const QRectF common = one & other;
    return common.width() > tolerance && common.height() > tolerance;
}

void collect(QWidget& widget, const QWidget* sheet, View& view,
    const std::function<Fill(const QWidget&)>& fill, const std::function<bool(const QWidget&)>& isSheet)
{
    const bool isRoot = &widget == &view.root;
    if ((!isRoot && !widget.isVisibleTo(&view.root)) || widget.size().isEmpty()) return;
    if (!isRoot && isSheet(widget)) {
        sheet = &widget;
        view.sheets.push_back(sheet);
    }
    const QRect place{widget.mapTo(&view.root, QPoint{}), widget.size()};
    view.pieces.push_back({&widget, place, paintingOf(widget), fill(widget), sheet});
    for (QObject* child : widget.children())
        if (auto* inner = qobject_cast<QWidget*>(child); inner != nullptr && !inner->isWindow())
            collect(*inner, sheet, view, fill, isSheet);
}

// What a piece shows, in pixels of the root.
std::vector<QRectF> shown(const Piece& piece)
{
    if (piece.fill == Fill::All || piece.fill == Fill::Ground) return {QRectF{piece.place}};
    std::vector<QRectF> result;
    for (const PaintedText& each : piece.painting.texts)
        result.push_back((each.ink & each.room).translated(piece.place.topLeft()));
    return result;
}

bool areRelated(const QWidget& one, const QWidget& other)
{
    return &one == &other || one.isAncestorOf(&other) || other.isAncestorOf(&one);
}

// Whether a piece is the ground of another one's text.
bool carries(const Piece& ground, const Piece& text)
{
    return ground.fill == Fill::Ground && text.fill == Fill::Nothing && ground.place.contains(text.place);
}

// Whether something that lies on the page hides this place of a piece.
bool isCovered(const View& view, const Piece& piece, const QRectF& place)
{
    bool above = piece.sheet == nullptr;
    for (const QWidget* sheet : view.sheets) {
        if (above && sheet != piece.sheet && !sheet->isAncestorOf(piece.widget)) {
            const QRect covered{sheet->mapTo(&view.root, QPoint{}), sheet->size()};
            if (QRectF{covered}.intersects(place)) return true;
        }
        if (sheet == piece.sheet) above = true;
    }
    return false;
}

bool isNear(QRgb one, QRgb other)
{
    const auto far = [](int a, int b) { return std::abs(a - b) > 24; };
    return !far(qRed(one), qRed(other)) && !far(qGreen(one), qGreen(other)) && !far(qBlue(one), qBlue(other));
}

// The colour that most of the place around the glyphs has; nothing where the ink is all there is.
std::optional<QColor> groundOf(const QImage& picture, const QRect& place, const QColor& ink)
{
    std::map<QRgb, int> counts;
    for (int y = place.top(); y <= place.bottom(); ++y)
        for (int x = place.left(); x <= place.right(); ++x)
            if (const QRgb pixel = picture.pixel(x, y); !isNear(pixel, ink.rgb())) ++counts[pixel];
    const auto most = std::max_element(
        counts.begin(), counts.end(), [](const auto& a, const auto& b) { return a.second < b.second; });
    if (most == counts.end()) return {};
    return QColor{most->first};
}

template <class Visit>
void forEachText(const View& view, Visit visit)
{
    for (const Piece& piece : view.pieces)
        for (const PaintedText& each : piece.painting.texts)
            visit(piece, each);
}

} // namespace

std::string plainName(const QWidget& widget)
{
    int status = 0;
    const std::unique_ptr<char, void (*)(void*)> name{
        abi::__cxa_demangle(typeid(widget).name(), nullptr, nullptr, &status), std::free};
    const std::string full = status == 0 ? name.get() : typeid(widget).name();
    const std::size_t colons = full.rfind("::");
    return colons == std::string::npos ? full : full.substr(colons + 2);
}

View takeIn(QWidget& root, NameOf name, const std::function<Fill(const QWidget&)>& fill,
    const std::function<bool(const QWidget&)>& isSheet)
{
    View view{root, std::move(name), {}, {}};
    collect(root, nullptr, view, fill, isSheet);
    return view;
}

Findings findOutside(const View& view)
{
    Findings findings;
    for (const Piece& piece : view.pieces) {
        const QWidget* parent = piece.widget->parentWidget();
        // A place that is scaled edge by edge may end a pixel further.
        if (piece.widget == &view.root || isWithin(piece.widget->geometry(), parent->rect())) continue;
        findings.push_back({"outside",
            view.name(*piece.widget) + ' ' + text(piece.widget->geometry()) + " reaches over "
                + view.name(*parent) + ' ' + text(parent->rect())});
    }
    return findings;
}

Findings findOverlaps(const View& view)
{
    Findings findings;
    const auto describe = [&](const Piece& piece, const QRectF& place) {
        return view.name(*piece.widget) + ' ' + text(place);
    };
    for (std::size_t i = 0; i < view.pieces.size(); ++i) {
        const Piece& one = view.pieces[i];
        // Texts of one widget, unless the widget is all one text.
        for (std::size_t a = 0; a < one.painting.texts.size(); ++a)
            for (std::size_t b = a + 1; b < one.painting.texts.size(); ++b)
                if (overlap(one.painting.texts[a].ink & one.painting.texts[a].room,
                        one.painting.texts[b].ink & one.painting.texts[b].room))
                    findings.push_back({"overlap",
                        view.name(*one.widget) + ": " + quoted(one.painting.texts[a].text) + ' '
                            + text(one.painting.texts[a].ink) + " and " + quoted(one.painting.texts[b].text)
                            + ' ' + text(one.painting.texts[b].ink)});
        for (std::size_t j = i + 1; j < view.pieces.size(); ++j) {
            const Piece& other = view.pieces[j];
            if (one.sheet != other.sheet || areRelated(*one.widget, *other.widget)) continue;
            if (!one.place.intersects(other.place) || carries(one, other) || carries(other, one)) continue;
            for (const QRectF& a : shown(one))
                for (const QRectF& b : shown(other))
                    if (overlap(a, b))
                        findings.push_back({"overlap", describe(one, a) + " and " + describe(other, b)});
        }
    }
    return findings;
}

Findings findCutTexts(const View& view)
{
    Findings findings;
    forEachText(view, [&](const Piece& piece, const PaintedText& each) {
        QRectF room = each.room;
        if (piece.fill == Fill::Scrolled) room.adjust(0, -anyHeight, 0, anyHeight);
        if (isWithin(each.ink, room)) return;
        findings.push_back({"cut",
            view.name(*piece.widget) + ' ' + text(piece.place) + ": " + quoted(each.text) + " takes "
                + text(each.ink) + ", seen is " + text(each.room)});
    });
    return findings;
}

Findings findShortenedTexts(const View& view)
{
    Findings findings;
    for (const Piece& piece : view.pieces) {
        const auto take = [&](const QString& text) {
            findings.push_back({"shortened",
                view.name(*piece.widget) + ' ' + servopanel::look::text(piece.place) + ": " + quoted(text)});
        };
        // What is left out there comes with scrolling.
        const bool isTold = piece.fill != Fill::Scrolled && !piece.painting.leftOut.empty();
        if (isTold)
            for (const QString& text : piece.painting.leftOut)
                take(text);
        else
            for (const PaintedText& each : piece.painting.texts)
                if (each.text.endsWith(QChar{0x2026})) take(each.text);
    }
    return findings;
}

Findings findMissingGlyphs(const View& view)
{
    Findings findings;
    forEachText(view, [&](const Piece& piece, const PaintedText& each) {
        QTextLayout layout{each.text, each.font};
        layout.beginLayout();
        layout.createLine();
        layout.endLayout();
        for (const QGlyphRun& run : layout.glyphRuns())
            if (run.glyphIndexes().contains(0)) {
                findings.push_back({"glyph", view.name(*piece.widget) + ": " + quoted(each.text)});
                return;
            }
    });
    return findings;
}

Findings findSmallTargets(
    const std::vector<Target>& targets, double millimetresPerPixel, double leastMillimetres)
{
    Findings findings;
    for (const Target& target : targets) {
        const double least = std::min(target.place.width(), target.place.height()) * millimetresPerPixel;
        if (least >= leastMillimetres) continue;
        std::ostringstream out;
        out << target.name << ' ' << text(target.place) << " is " << std::fixed << std::setprecision(1)
            << least << " mm";
        findings.push_back({"small", out.str()});
    }
    return findings;
}

Findings findPaleTexts(
    const View& view, const QImage& picture, const std::function<bool(const QWidget&)>& isInactive)
{
    Findings findings;
    forEachText(view, [&](const Piece& piece, const PaintedText& each) {
        const QRectF ink = (each.ink & each.room).translated(piece.place.topLeft());
        if (ink.isEmpty() || isInactive(*piece.widget) || isCovered(view, piece, ink)) return;
        // A little around the glyphs: a point has no ground of its own.
        const QRect place = ink.toAlignedRect().adjusted(-2, -2, 2, 2) & piece.place & picture.rect();
        const auto ground = groundOf(picture, place, each.colour);
        const double found = ground ? panel::contrast(each.colour, *ground) : 1.0;
        if (found >= panel::leastContrast) return;
        std::ostringstream out;
        out << view.name(*piece.widget) << ' ' << text(place) << ": " << quoted(each.text) << ' '
            << each.colour.name().toStdString() << " on "
            << (ground ? ground->name().toStdString() : std::string{"itself"}) << " is " << std::fixed
            << std::setprecision(1) << found << " : 1";
        findings.push_back({"pale", out.str()});
    });
    return findings;
}

} // namespace servopanel::look

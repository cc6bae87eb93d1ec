#pragma once

#include "look/painted_text.h"

#include <QImage>
#include <QWidget>

#include <functional>
#include <string>
#include <vector>

namespace servopanel::look {

// Something an operator would stumble over.
struct Finding {
    std::string kind; // "outside", "overlap", "cut", "shortened", "small", "pale", "glyph"
    std::string what; // widget and rectangles, in pixels
};
using Findings = std::vector<Finding>;

// How a widget is called in a finding.
using NameOf = std::function<std::string(const QWidget&)>;
std::string plainName(const QWidget& widget);

// How much of a widget's rectangle shows something.
enum class Fill {
    Nothing, // only what it writes
    All, // a key, a field
    Ground, // a picture with room for texts
    Scrolled, // only what it writes, of which lines above and below come with scrolling
};

// A widget that is seen, with what it paints itself.
struct Piece {
    QWidget* widget = nullptr;
    QRect place; // in pixels of the root
    Painting painting;
    Fill fill = Fill::Nothing;
    const QWidget* sheet = nullptr; // the sheet that it lies on; nothing for the page
};

// What one look at the screen takes in.
struct View {
    QWidget& root;
    NameOf name;
    std::vector<Piece> pieces;
    std::vector<const QWidget*> sheets; // what deliberately lies on the page, from bottom to top
};

// isSheet: whether a widget lies on the others on purpose.
View takeIn(QWidget& root, NameOf name, const std::function<Fill(const QWidget&)>& fill,
    const std::function<bool(const QWidget&)>& isSheet);

Findings findOutside(const View& view);
Findings findOverlaps(const View& view);
Findings findCutTexts(const View& view);
// Texts that end in "…", or lose something without it, because there was no room for them.
Findings findShortenedTexts(const View& view);
// Characters for which no font has a glyph.
Findings findMissingGlyphs(const View& view);

// Where a finger has to meet, in pixels of the root.
struct Target {
    std::string name;
    QRect place;
};
inline constexpr double leastTargetMillimetres = 9;
Findings findSmallTargets(const std::vector<Target>& targets, double millimetresPerPixel,
    double leastMillimetres = leastTargetMillimetres);

// picture: the root as it is seen. isInactive: widgets whose text need not be read, such as a key that is off.
Findings findPaleTexts(
    const View& view, const QImage& picture, const std::function<bool(const QWidget&)>& isInactive);

} // namespace servopanel::look

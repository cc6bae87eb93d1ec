#include "panel/form/caption_lines.h"

#include "panel/form/control_host.h"
#include "panel/form/text_child.h"

#include <algorithm>
#include <vector>

namespace servopanel::panel {

namespace {

constexpr int leastPixels = 9;

bool isOver(const QRect& one, const QRect& other)
{
    return one.left() <= other.right() && other.left() <= one.right();
}

bool collide(const TextChild& upper, const TextChild& lower)
{
    const int end = upper.view().y() + upper.shownText().inkBottom() + 1;
    return end > lower.view().y() + lower.shownText().inkTop();
}

bool shrink(TextChild& caption)
{
    const int pixels = caption.shownText().shownPixels();
    if (pixels <= leastPixels) return false;
    caption.shownText().setMostPixels(pixels - 1);
    caption.giveRoom();
    return true;
}

std::vector<TextChild*> captionsOf(ControlHost& page)
{
    std::vector<TextChild*> captions;
    page.forEach([&](std::string_view name, std::int16_t, Child& child) {
        auto* const caption = dynamic_cast<TextChild*>(&child);
        if (caption == nullptr || caption->viewOrNull() == nullptr || !name.starts_with("Beschriftung"))
            return;
        caption->shownText().setMostPixels(0);
        caption->giveRoom();
        if (!caption->view().isHidden() && !caption->shownText().text().isEmpty())
            captions.push_back(caption);
    });
    std::sort(captions.begin(), captions.end(), [](const TextChild* one, const TextChild* other) {
        return one->given().center().y() < other->given().center().y();
    });
    return captions;
}

// Both alike: the lines of one caption are of one size.
bool separate(TextChild& upper, TextChild& lower)
{
    bool isChanged = false;
    while (collide(upper, lower)) {
        const bool isUpperSmaller = shrink(upper);
        const bool isLowerSmaller = shrink(lower);
        if (!isUpperSmaller && !isLowerSmaller) break;
        isChanged = true;
    }
    return isChanged;
}

bool areNeighbours(const TextChild& upper, const TextChild& lower)
{
    return upper.view().parentWidget() == lower.view().parentWidget() && isOver(upper.given(), lower.given());
}

bool separateAll(const std::vector<TextChild*>& captions)
{
    bool isChanged = false;
    for (std::size_t i = 0; i < captions.size(); ++i)
        for (std::size_t next = i + 1; next < captions.size(); ++next) {
            TextChild& upper = *captions[i];
            TextChild& lower = *captions[next];
            if (lower.given().top() > upper.given().bottom() + upper.given().height()) break;
            if (areNeighbours(upper, lower) && separate(upper, lower)) isChanged = true;
        }
    return isChanged;
}

} // namespace

void separateCaptionLines(ControlHost& page)
{
    const std::vector<TextChild*> captions = captionsOf(page);
    // Smaller letters stand in the middle of their line anew, so every line is looked at again. It ends, because nothing
    // grows.
    while (separateAll(captions)) { }
}

} // namespace servopanel::panel

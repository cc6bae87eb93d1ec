#include "panel/form/text_child.h"

#include "basic/conversions.h"
#include "panel/look/colours.h"
#include "panel/look/twips.h"
#include "platform/ids.h"

namespace servopanel::panel {

using basic::Variant;
using platform::named;
namespace names = platform::names;

namespace {

Qt::Alignment qtAlignment(std::int16_t alignment)
{
    switch (alignment) {
    case 1:
    case 3: return Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter;
    case 2:
    case 5: return Qt::AlignHCenter | Qt::AlignVCenter;
    default: return Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter;
    }
}

std::string_view eventName(Touch touch)
{
    switch (touch) {
    case Touch::Down: return "MouseDown";
    case Touch::Move: return "MouseMove";
    default: return "MouseUp";
    }
}

} // namespace

std::function<void(const TouchPoint&)> touchEvents(
    std::function<void(std::string_view, std::initializer_list<Variant>)> raise)
{
    return [raise = std::move(raise)](const TouchPoint& point) {
        raise(eventName(point.touch),
            {Variant{point.button}, Variant{point.shift}, Variant{toTwips(point.at.x())},
                Variant{toTwips(point.at.y())}});
    };
}

TextChild::TextChild(std::string className, TextView& view, Services& services)
    : Child{std::move(className), view, services}
{
    view.setTouchHandler(touchEvents(
        [this](std::string_view event, std::initializer_list<Variant> args) { raise(event, args); }));

    const auto add = [this](const platform::Member& member, auto& field, auto convert) {
        addProperty(
            member, [&field] { return Variant{field}; },
            [this, &field, convert](const Variant& value) {
                field = convert(value);
                applyLook();
            });
    };
    add(names::Alignment, alignment_, basic::toInt16);
    add(named("BackStyle"), backStyle_, basic::toInt16);
    add(named("BorderStyle"), borderStyle_, basic::toInt16);
}

void TextChild::applyLook()
{
    if (viewOrNull() == nullptr) return;
    text().setLook(font(), fromLibrary(ink_), qtAlignment(alignment_));
    text().setLockShown(isLockedByLevel());
    lookChanged();
}

// While the mask is open every input is off; only those that the access level forbids are grey as well.
bool TextChild::isLockedByLevel() const
{
    constexpr std::int32_t lockedInk = 0x808080;
    return !enabled() && ink_ == lockedInk;
}

void TextChild::enabledChanged()
{
    if (viewOrNull() == nullptr) return;
    text().setLocked(!enabled());
    text().setLockShown(isLockedByLevel());
}

void TextChild::setStale(bool stale)
{
    if (stale_ == stale || viewOrNull() == nullptr) return;
    stale_ = stale;
    text().setStale(stale);
}

} // namespace servopanel::panel

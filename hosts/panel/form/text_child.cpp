#include "panel/form/text_child.h"

#include "basic/conversions.h"
#include "panel/look/colours.h"
#include "panel/look/twips.h"
#include "platform/ids.h"

#include <algorithm>

namespace servopanel::panel {

using basic::Variant;
using platform::named;
namespace names = platform::names;

namespace {

// 3 to 5 are 0 to 2 as the library has mirrored them once; the view follows the direction that the panel has now.
Qt::Alignment qtAlignment(std::int16_t alignment)
{
    switch (alignment % 3) {
    case 1: return Qt::AlignRight | Qt::AlignVCenter;
    case 2: return Qt::AlignHCenter | Qt::AlignVCenter;
    default: return Qt::AlignLeft | Qt::AlignVCenter;
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

    view.setLockedHandler([this] {
        if (isLockedByLevel()) this->services().lockedTouched(*this);
    });

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
    text().setLook(font(), fromLibrary(ink_), qtAlignment(alignment_) | fixedSide_);
    text().setLockShown(isLockedByLevel());
    lookChanged();
    showState();
    giveRoom();
}

void TextChild::placed()
{
    given_ = view().geometry();
    giveRoom();
}

void TextChild::showText(const QString& shown)
{
    text().setText(shown);
    giveRoom();
}

// Captions on small panels are as high as Latin letters; Arabic and Chinese ones are higher.
void TextChild::giveRoom()
{
    const int more = text().inkHeight() - given_.height();
    QRect room = given_;
    if (more > 0) {
        const int above = growsDown_ ? 0 : (more + 1) / 2;
        room.adjust(0, -above, 0, growsDown_ ? more : above);
        // Not out of the container, unless the control itself is.
        const QWidget* const container = view().parentWidget();
        if (container != nullptr && room.bottom() > container->height() - 1)
            room.moveBottom(std::max(container->height() - 1, given_.bottom()));
        if (room.top() < 0) room.moveTop(std::min(0, given_.top()));
    }
    if (given_.isValid() && view().geometry() != room) view().setGeometry(room);
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

void TextChild::setValueState(ValueState state)
{
    state_ = state;
    if (state == ValueState::Fresh) isGivenUp_ = false;
    showState();
}

ValueState TextChild::valueState() const
{
    if (state_ == ValueState::Fresh) return state_;
    // What the operator has entered is known, whatever the machine says.
    if (isChanged()) return ValueState::Stale;
    return isGivenUp_ ? ValueState::Unknown : state_;
}

void TextChild::showState()
{
    if (viewOrNull() == nullptr) return;
    if (wasChanged_ && !isChanged() && state_ != ValueState::Fresh) isGivenUp_ = true;
    wasChanged_ = isChanged();
    const bool wasUnknown = text().isUnknown();
    text().setState(valueState());
    if (wasUnknown != text().isUnknown()) textChanged();
}

} // namespace servopanel::panel

#include "panel/form/schalter.h"

#include "basic/conversions.h"
#include "platform/ids.h"

namespace servopanel::panel {

using basic::Variant;
namespace ids = platform::ids::Schalter;

SchalterChild::SchalterChild(QWidget* parent, Services& panel)
    : Child{"Schalter", *new SwitchView{parent, [&panel](PanelText text) { return panel.word(text); }}, panel}
{
    addProperty(
        ids::Zustand, [this] { return state_; }, [this](const Variant& value) { setState(value); });
    addProperty(
        ids::Freigabe, [this] { return Variant{free_}; },
        [this](const Variant& value) {
            free_ = basic::toBoolean(value);
            adapt();
        });
    lever().setHandler([this] { raise("SchalterGedrückt"); });
    lever().setLockedHandler([this] {
        if (!free_) this->services().lockedTouched(*this);
    });
}

// From the machine comes the weight of the switch's bit, from the page a Boolean when the operator has toggled it.
void SchalterChild::setState(const Variant& state)
{
    const bool on = basic::toBoolean(state);
    const bool isWeight = !state.holds<bool>();
    state_ = state;
    changed_ = !isWeight && isKnown_;
    isKnown_ = isKnown_ || isWeight;
    lever().setState(on);
    if (isWeight) {
        isGivenUp_ = false;
        valuePut();
    }
    adapt();
}

void SchalterChild::setValueState(ValueState state)
{
    // The page no longer shows what the operator has toggled.
    if (state == ValueState::Unknown && machine_ != state) changed_ = false;
    machine_ = state;
    adapt();
}

void SchalterChild::settle()
{
    isGivenUp_ = isGivenUp_ || changed_;
    changed_ = false;
    adapt();
}

void SchalterChild::setBeingEdited(bool edited)
{
    if (viewOrNull() != nullptr) lever().setBeingEdited(edited);
}

// What the operator has chosen is known, whatever the machine says.
ValueState SchalterChild::valueState() const
{
    if (machine_ == ValueState::Fresh) return machine_;
    if (changed_) return ValueState::Stale;
    return isGivenUp_ ? ValueState::Unknown : machine_;
}

void SchalterChild::adapt()
{
    if (viewOrNull() == nullptr) return;
    lever().setFree(takesTouch());
    lever().setMarks({changed_, false, machine_ != ValueState::Fresh});
    lever().setUnknown(!isSeen());
}

void SchalterChild::languageChanged()
{
    if (viewOrNull() != nullptr) lever().update();
}

} // namespace servopanel::panel

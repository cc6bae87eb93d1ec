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
    adapt();
}

void SchalterChild::setStale(bool stale)
{
    if (stale_ == stale) return;
    stale_ = stale;
    adapt();
}

void SchalterChild::setBeingEdited(bool edited)
{
    if (viewOrNull() != nullptr) lever().setBeingEdited(edited);
}

void SchalterChild::adapt()
{
    if (viewOrNull() == nullptr) return;
    lever().setFree(free_ && enabled());
    lever().setMarks({changed_, false, stale_});
}

void SchalterChild::languageChanged()
{
    if (viewOrNull() != nullptr) lever().update();
}

} // namespace servopanel::panel

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
        ids::Zustand, [this] { return state_; },
        [this](const Variant& value) {
            const bool on = basic::toBoolean(value);
            state_ = value;
            lever().setState(on);
        });
    addProperty(
        ids::Freigabe, [this] { return Variant{free_}; },
        [this](const Variant& value) {
            free_ = basic::toBoolean(value);
            adapt();
        });
    lever().setHandler([this] { raise("SchalterGedrückt"); });
}

void SchalterChild::adapt()
{
    if (viewOrNull() != nullptr) lever().setFree(free_ && enabled());
}

void SchalterChild::languageChanged()
{
    if (viewOrNull() != nullptr) lever().update();
}

} // namespace servopanel::panel

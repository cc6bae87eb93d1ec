#include "panel/form/scroll_bar.h"

#include "basic/conversions.h"
#include "platform/ids.h"

namespace servopanel::panel {

using basic::Variant;
namespace ids = platform::ids::ScrollBar;

ScrollBarChild::ScrollBarChild(QWidget* parent, Services& panel)
    : Child{"ScrollBar", *new ScrollView{parent}, panel}
{
    const auto add = [this](const platform::Member& byId, auto& field, auto convert) {
        for (const platform::Member& member : {byId, platform::named(byId.name)})
            addProperty(
                member, [&field] { return Variant{field}; },
                [this, &field, convert](const Variant& value) {
                    field = convert(value);
                    adapt();
                });
    };
    add(ids::Seite, visible_, basic::toInt16);
    add(ids::Anzahl, total_, basic::toInt16);
    add(ids::Position, position_, basic::toInt16);
    add(ids::Rahmen, frame_, basic::toInt16);
    add(ids::Aktiv, active_, basic::toBoolean);
    add(ids::Gesperrt, locked_, basic::toBoolean);
    scroll().setHandler([this](int position) {
        position_ = static_cast<std::int16_t>(position);
        raise("NeuePos", {Variant{position_}});
    });
}

void ScrollBarChild::adapt()
{
    if (viewOrNull() == nullptr) return;
    scroll().setRange(visible_, total_);
    scroll().setPosition(position_);
    scroll().setOn(active_ && !locked_ && enabled());
}

} // namespace servopanel::panel

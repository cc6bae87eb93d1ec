// What stands beside an input of a control: where it is found among the control's children.
#include "panel/form/beside.h"

#include "basic/conversions.h"
#include "panel/form/control_host.h"
#include "panel/form/input_value.h"
#include "panel/form/value_source.h"
#include "panel/form/vws_index.h"
#include "platform/ids.h"

#include <algorithm>

namespace servopanel::panel {

QString ControlHost::shownText(const std::string& name, std::int16_t index)
{
    auto* text = dynamic_cast<VWSIndex*>(find(name, index));
    const bool isSeen = text != nullptr && basic::toBoolean(text->Child::get(platform::names::Visible, {}));
    return isSeen ? text->shown() : QString{};
}

ValueState ControlHost::limitsState(const std::string& name, std::int16_t index)
{
    const std::optional<ValueSource> source = valueSource(name, index);
    const std::optional<LimitSources> limits = source ? limitSources(*source) : std::nullopt;
    if (!limits) return ValueState::Fresh;
    return std::max(services().valueState(limits->lower), services().valueState(limits->upper));
}

bool ControlHost::isWhole(const std::string& name, std::int16_t index)
{
    const std::optional<ValueSource> source = valueSource(name, index);
    if (!source) return false;
    const basic::Variant* const held = services().familyRead(source->family).value;
    return held != nullptr && holdsWholeNumbers(*held);
}

// Captions and units stand in arrays whose names end like the input's own: SollwertL, BeschriftungL, EinheitL. A drawing
// number has one caption for its parts.
Beside ControlHost::beside(const platform::Control& input)
{
    constexpr std::string_view drawingStem = "Zeichnung";
    const auto own = std::find_if(
        children_.begin(), children_.end(), [&](const auto& each) { return each.second.get() == &input; });
    const Key* const key = own != children_.end() && own->first.first == "Pseudo" ? litUpDrawing()
        : own == children_.end()                                                  ? nullptr
                                                                                  : &own->first;
    if (key == nullptr) return {};
    const auto& [name, index] = *key;
    const bool isDrawing = name.starts_with(drawingStem);
    for (const std::string_view stem :
        {std::string_view{"Sollwert"}, std::string_view{"Schalter"}, drawingStem}) {
        if (!name.starts_with(stem)) continue;
        const std::string side = name.substr(stem.size());
        const auto caption = static_cast<std::int16_t>(!isDrawing ? index : index % 2 == 1 ? 41 : 42);
        const QString text = shownText("Beschriftung" + side, caption) + u' '
            + shownText("Beschriftung" + side + "2", caption);
        const Child& child = *children_.at(*key);
        return {text.trimmed(), shownText("Einheit" + side, index).trimmed(),
            child.isChanged() ? ValueState::Fresh : child.valueState(), isDrawing || isWhole(name, index),
            limitsState(name, index)};
    }
    return {};
}

// An input outside of arrays stands in for a drawing number part, which is lit up meanwhile.
const ControlHost::Key* ControlHost::litUpDrawing()
{
    constexpr std::int32_t litUp = 0x00FF00;
    for (const auto& [key, child] : children_)
        if (key.first.starts_with("Zeichnung")
            && basic::toInt32(child->Child::get(platform::ids::VWSIndex::Hintergrund, {})) == litUp)
            return &key;
    return nullptr;
}

} // namespace servopanel::panel

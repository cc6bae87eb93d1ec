#include "panel/runtime/waiting_edits.h"

#include "basic/conversions.h"
#include "basic/text.h"
#include "panel/form/eingabemaske.h"
#include "panel/form/input_value.h"
#include "panel/form/schalter.h"
#include "platform/ids.h"

#include <algorithm>
#include <optional>

namespace servopanel::panel {

using basic::Variant;
namespace ids = platform::ids;

namespace {

std::optional<double> entered(ControlHost& page, std::string_view name, std::int16_t index)
{
    if (!name.starts_with("Zeichnung")) return inputValue(page, name, index);
    return basic::Val(basic::toText(page.find(name, index)->get(ids::VWSIndex::Text, {})));
}

// The page turns a touched switch over, so it has to stand the other way before.
void turn(ControlHost& page, platform::ChildId id, bool on)
{
    constexpr std::int16_t someWeight = 1; // as the machine's states come
    auto& lever = page.require<SchalterChild>(id.name, id.index);
    lever.put(ids::Schalter::Zustand, {}, Variant{on ? std::int16_t{0} : someWeight});
    page.deliver(id, "SchalterGedrückt", {});
}

void enter(ControlHost& page, platform::ChildId id, double value)
{
    constexpr std::int16_t leftButton = 1;
    const Variant touch[]{Variant{leftButton}, Variant{std::int16_t{0}}, Variant{0.0F}, Variant{0.0F}};
    page.deliver(id, "MouseDown", touch);
    page.require<EingabemaskeChild>("Eingabemaske").enter(value);
}

} // namespace

void WaitingEdits::keyBegins(ControlHost& page)
{
    edits_.clear();
    page.forEach([&](std::string_view name, std::int16_t index, Child& child) {
        const std::optional<ValueSource> source = valueSource(name, index);
        if (!source || !child.isChanged()) return;
        const std::optional<double> value = entered(page, name, index);
        if (value) edits_.push_back({*source, std::string{name}, index, *value});
    });
}

void WaitingEdits::repeat(ControlHost& page, const std::vector<ValueSource>& values) const
{
    for (const Edit& edit : edits_) {
        if (std::find(values.begin(), values.end(), edit.source) == values.end()) continue;
        const platform::ChildId id{edit.name, edit.index};
        if (edit.source.family == families::switches)
            turn(page, id, edit.entered != 0);
        else
            enter(page, id, edit.entered);
    }
}

} // namespace servopanel::panel

#include "check/look_around.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "machine/servo_families.h"
#include "platform/ids.h"
#include "recording/memory/project.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace servopanel::check {

namespace {

namespace ids = platform::ids;
namespace classes = platform::classes;
namespace families = machine::families;

constexpr std::int16_t lastKey = 11;
constexpr std::int16_t noText = 10000; // number of a footer key without a text

std::string textOf(recording::MemoryControl& control)
{
    if (control.className() == classes::Label) return basic::toText(control.get(platform::names::Caption));
    if (control.className() == classes::VWSIndex || control.className() == classes::VWSLangSelect)
        return basic::toText(control.get(ids::VWSIndex::Text));
    return {};
}

// The name of an input.
bool isOfItem(platform::ChildId id) { return id.name == "BeschriftungL" || id.name == "BeschriftungR"; }

// Whether an operator cannot do without this text. Lines of the diagnosis, signs between the parts of a drawing number
// and captions in the picture may be left empty.
bool isNeeded(const std::string& part, platform::ChildId id)
{
    return part == classes::ServoMenu || id.name == "Überschrift" || isOfItem(id);
}

std::optional<double> limitOf(const basic::Variant& text)
{
    try {
        return basic::numberFromText(basic::toText(text));
    } catch (const basic::Error&) {
        return std::nullopt;
    }
}

} // namespace

void LookAround::look(recording::ControlInstance& part)
{
    picture(part.self());
    part.form().forEach([&](platform::ChildId id, recording::MemoryControl& control) {
        if (const auto* keys = dynamic_cast<const recording::MemoryFooter*>(&control)) footer(*keys);
        if (control.className() == classes::VWSVarIn) {
            const std::string variable = basic::toText(control.get(ids::VWSVarIn::VariablenName));
            if (!variable.empty()) watch_.noteVariable(variable);
        }
        const std::string shown = textOf(control);
        if (const std::string key = watch_.keyOf(shown); !key.empty()) asked_.textKeys.insert(key);
        if (!control.isShown()) return;
        if (control.className() == classes::VWSVarIn) input(id, control);
        if (control.className() == classes::PictureBox || control.className() == classes::VWSPicBox)
            picture(control);
        text(part.className(), id, shown);
    });
}

void LookAround::text(const std::string& part, platform::ChildId id, const std::string& text)
{
    const std::string key = watch_.keyOf(text);
    if (key.empty()) return;
    ShownText& shown = asked_.texts[key];
    shown.isNeeded = shown.isNeeded || isNeeded(part, id);
    shown.isOfItem = shown.isOfItem || isOfItem(id);
    if (std::find(shown.views.begin(), shown.views.end(), watch_.view()) == shown.views.end())
        shown.views.push_back(watch_.view());
}

void LookAround::footer(const recording::MemoryFooter& footer)
{
    for (std::int16_t key = 1; key <= lastKey; ++key) {
        const auto picture = footer.setting(ids::Fußzeile::Bild, key);
        const std::string name = picture ? basic::toText(*picture) : std::string{};
        if (!name.empty()) watch_.requireFooterPicture(name);
        const auto number = footer.setting(ids::Fußzeile::TextNummer, key);
        const std::int16_t text = number ? basic::toInt16(*number) : noText;
        if (text == 0 || text == noText) continue;
        const std::string textKey = "Standard." + basic::decimal(std::int32_t{text});
        asked_.textKeys.insert(textKey);
        if (!footer.isKeyOn(key)) continue;
        std::vector<std::string>& views = asked_.texts[textKey].views;
        if (views.empty())
            views.push_back("key " + basic::decimal(std::int32_t{key}) + " below " + watch_.view());
    }
}

// Pictures lie in their place from its upper left corner on, as they are.
void LookAround::picture(recording::MemoryControl& control)
{
    const basic::Variant value = control.get(platform::names::Picture);
    const auto* const object = value.get<basic::ObjectRef>();
    const auto picture = object ? std::dynamic_pointer_cast<recording::MemoryPicture>(*object) : nullptr;
    if (!picture) return;
    constexpr double twipsPerPixel = 15;
    const auto pixels = [&](const platform::Member& length) {
        return basic::roundToInt32(basic::toDouble(control.get(length)) / twipsPerPixel);
    };
    watch_.requireSize(picture->file(), pixels(platform::names::Width), pixels(platform::names::Height));
}

std::string LookAround::variableOf(
    std::string_view first, std::string_view second, platform::ChildId id) const
{
    constexpr std::int16_t lastOfFirst = 20;
    return watch_.variableOf(id.index <= lastOfFirst ? first : second);
}

// A value beyond its limits looks like any other, but the mask takes it for none.
void LookAround::input(platform::ChildId id, recording::MemoryControl& input)
{
    const std::string variable = basic::toText(input.get(ids::VWSVarIn::VariablenName));
    if (!variable.empty()) watch_.requireVariable(variable);
    if (watch_.isTroubled()) return;
    const std::string setpoint = variableOf(families::setpoints, families::secondSetpoints, id);
    const std::string lower = variableOf(families::lowerLimits, families::secondLowerLimits, id);
    const std::string upper = variableOf(families::upperLimits, families::secondUpperLimits, id);
    // In a list of the wrong length the numbers are not where they were meant to be.
    for (const std::string& each : {setpoint, lower, upper})
        if (project_.wrongStarts.contains(each)) return;
    const std::optional<double> low = limitOf(input.get(ids::VWSVarIn::Untergrenze));
    const std::optional<double> high = limitOf(input.get(ids::VWSVarIn::Obergrenze));
    const std::string name = "setpoint " + basic::decimal(std::int32_t{id.index});
    if (low && high && *low > *high)
        findings_.add({"project.json", project_.lineOfVariable(upper),
            name + " has the lower limit " + basic::decimal(*low) + " above the upper limit "
                + basic::decimal(*high) + ": no value can be entered there",
            {}, watch_.view()});
    const std::optional<double> value = limitOf(input.get(ids::VWSVarIn::Wert));
    if (value && low && high && *low <= *high && (*value < *low || *value > *high))
        findings_.add({"project.json", project_.lineOfVariable(setpoint),
            name + " starts with " + basic::decimal(*value) + ", outside its limits " + basic::decimal(*low)
                + " to " + basic::decimal(*high) + ": the mask does not take this value back",
            {}, watch_.view()});
}

} // namespace servopanel::check

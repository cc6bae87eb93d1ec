#include "panel/form/vws_index.h"

#include "basic/conversions.h"
#include "basic/text.h"
#include "panel/look/colours.h"
#include "platform/ids.h"

namespace servopanel::panel {

using basic::Variant;
namespace ids = platform::ids::VWSIndex;
namespace names = platform::names;

namespace {

constexpr std::int32_t normalGround = 0xC0C0C0;
constexpr std::int32_t litUpGround = 0x00FF00; // the mask works on it
constexpr std::int32_t changedInk = 0x008000; // changed, not yet written
constexpr std::string_view fontClassStem = "LSU"; // followed by the size in points

} // namespace

VWSIndex::VWSIndex(std::string className, QWidget* parent, Services& services)
    : TextChild{std::move(className), *new TextView{parent}, services}
{
    for (const platform::Member& member : {ids::Text, platform::named("Text")})
        addProperty(
            member, [this] { return Variant{value_}; },
            [this](const Variant& value) {
                value_ = basic::toText(value);
                languageChanged();
                // While it is lit up, it is given what the mask has made of it.
                if (ground_ != litUpGround) valuePut();
            });
    const auto addColour = [this](const platform::Member& byId, const platform::Member& byName,
                               std::int32_t& colour) {
        for (const platform::Member& member : {byId, byName})
            addProperty(
                member, [&colour] { return Variant{colour}; },
                [this, &colour](const Variant& value) {
                    colour = basic::toInt32(value);
                    applyLook();
                });
    };
    addColour(ids::Farbe, platform::named("Farbe"), ink_);
    addColour(ids::Hintergrund, platform::named("Hintergrund"), ground_);
    addProperty(
        names::FontClass, [this] { return Variant{fontClass_}; },
        [this](const Variant& value) { setFontClass(basic::toText(value)); });
    applyLook();
}

void VWSIndex::setFontClass(const std::string& fontClass)
{
    fontClass_ = fontClass;
    if (!basic::upperCase(fontClass).starts_with(fontClassStem)) return;
    const double points = basic::Val(std::string_view{fontClass}.substr(fontClassStem.size()));
    if (points > 0) setFontSize(static_cast<float>(points));
}

void VWSIndex::languageChanged()
{
    if (viewOrNull() == nullptr) return;
    const bool isKey = value_.size() > 1 && value_.front() == '@';
    showText(QString::fromStdString(isKey ? services().text(value_.substr(1)) : value_));
}

void VWSIndex::lookChanged()
{
    // With a frame it is an input, whose normal face is that of all inputs.
    const bool framed = borderStyle_ != 0;
    text().setFrame(framed ? TextView::Frame::Field : TextView::Frame::None);
    text().setChanged(isChanged());
    const bool opaque = backStyle_ != 0 && !(framed && ground_ == normalGround);
    text().setBackground(opaque ? std::optional{fromLibrary(ground_)} : std::nullopt);
    // The mask works on an input that nobody sees instead; a colour alone does not show everybody where.
    text().setBeingEdited(edited_ || (framed && ground_ == litUpGround));
}

void VWSIndex::setBeingEdited(bool edited)
{
    edited_ = edited;
    if (viewOrNull() != nullptr) applyLook();
}

bool VWSIndex::isChanged() const { return borderStyle_ != 0 && ink_ == changedInk; }

} // namespace servopanel::panel

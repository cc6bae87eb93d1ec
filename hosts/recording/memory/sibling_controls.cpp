#include "recording/memory/sibling_controls.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "platform/ids.h"
#include "recording/memory/failures.h"
#include "recording/memory/project.h"

#include <utility>

namespace servopanel::recording {

namespace {

namespace ids = platform::ids;

bool isCall(const platform::Member& member, const platform::Member& operation)
{
    return member.id == operation.id && member.kind == platform::MemberKind::Method;
}

const basic::Variant& second(platform::Args args)
{
    if (args.size() != 2) basic::raise(basic::ErrorNumber::NoSuchMember);
    return args[1];
}

// A limit that is no number does not limit.
std::optional<double> limitOf(const basic::Variant& text)
{
    try {
        std::string number = basic::toText(text);
        for (char& sign : number)
            if (sign == ',') sign = '.';
        return basic::numberFromText(number);
    } catch (const basic::Error&) {
        return std::nullopt;
    }
}

} // namespace

MemoryFooter::Key& MemoryFooter::keyOf(platform::Args args)
{
    if (args.empty()) basic::raise(basic::ErrorNumber::NoSuchMember);
    return keys_[basic::toByte(args[0])];
}

basic::Variant MemoryFooter::call(const platform::Member& member, platform::Args args)
{
    if (isCall(member, ids::Fußzeile::Einstellung)) return keyOf(args).colour;
    if (isCall(member, ids::Fußzeile::Freigabe))
        keyOf(args).on = basic::toBoolean(second(args));
    else if (isCall(member, ids::Fußzeile::TextNummer))
        keyOf(args).text = basic::toInt16(second(args));
    else if (isCall(member, ids::Fußzeile::Farbe))
        keyOf(args).colour = basic::toInt32(second(args));
    else if (isCall(member, ids::Fußzeile::Bild))
        keyOf(args).picture = basic::toText(second(args));
    else
        return MemoryControl::call(member, args);
    return {};
}

bool MemoryFooter::isKeyOn(std::int16_t key) const
{
    const auto known = keys_.find(key);
    return known != keys_.end() && known->second.on;
}

std::optional<basic::Variant> MemoryFooter::setting(const platform::Member& member, std::int16_t key) const
{
    const auto known = keys_.find(key);
    const Key state = known == keys_.end() ? Key{} : known->second;
    if (member.id == ids::Fußzeile::Freigabe.id) return basic::Variant{state.on};
    if (member.id == ids::Fußzeile::TextNummer.id) return basic::Variant{state.text};
    if (member.id == ids::Fußzeile::Farbe.id || member.id == ids::Fußzeile::Einstellung.id)
        return basic::Variant{state.colour};
    if (member.id == ids::Fußzeile::Bild.id) return basic::Variant{state.picture};
    return std::nullopt;
}

void MemoryVarIn::changed(std::string_view property)
{
    if (property != ids::VWSVarIn::Wert.name) return;
    const std::string variable = basic::toText(kept("VariablenName"));
    if (!variable.empty()) world().variables.set(variable, kept("Wert"));
}

bool MemoryVarIn::accepts(double number) const
{
    const std::optional<double> low = limitOf(kept("Untergrenze"));
    const std::optional<double> high = limitOf(kept("Obergrenze"));
    return !(low && number < *low) && !(high && number > *high);
}

MemorySwitch::MemorySwitch(std::string_view className, std::string name, MemoryWorld& world)
    : MemoryControl{className, std::move(name), world}
{
    keep(ids::Schalter::Zustand.name, false);
    keep(ids::Schalter::Freigabe.name, true);
}

bool MemorySwitch::isEnabled() const
{
    return MemoryControl::isEnabled() && isSet(ids::Schalter::Freigabe.name);
}

void MemoryLabel::changed(std::string_view property)
{
    if ((property == "Caption" || property == "AutoSize") && isSet("AutoSize"))
        keep("Width", textWidthOf(basic::toText(kept("Caption")), world()));
}

void MemoryPictureBox::changed(std::string_view property)
{
    if (property != "Picture" || !isSet("AutoSize")) return;
    const auto* object = kept("Picture").get<basic::ObjectRef>();
    const auto picture = object ? std::dynamic_pointer_cast<MemoryPicture>(*object) : nullptr;
    if (!picture) return;
    keep("Width", static_cast<float>(picture->size().width) * world().twipsPerPixelX);
    keep("Height", static_cast<float>(picture->size().height) * world().twipsPerPixelY);
}

MemoryLanguage::MemoryLanguage(std::string_view className, std::string name, MemoryWorld& world)
    : MemoryControl{className, std::move(name), world}
{
    keep("Font.Name", "Arial");
    keep("Font.Weight", std::int16_t{400});
}

basic::Variant MemoryLanguage::call(const platform::Member& member, platform::Args args)
{
    if (!isCall(member, ids::VWSLanguage::Text) || args.size() != 1) return MemoryControl::call(member, args);
    if (world().lookUpText) return world().lookUpText(basic::toText(args[0]));
    const auto text = world().texts.find(basic::toText(args[0]));
    return text == world().texts.end() ? basic::Variant{""} : basic::Variant{text->second};
}

MemoryScrollBar::MemoryScrollBar(std::string_view className, std::string name, MemoryWorld& world)
    : MemoryControl{className, std::move(name), world}
{
    keep(ids::ScrollBar::Position.name, std::int16_t{1});
}

bool MemoryHostedChild::isOwnAffair(const platform::Member& member) const
{
    return hosted_ == nullptr || findProperty(className(), member) != nullptr;
}

basic::Variant MemoryHostedChild::get(const platform::Member& member, platform::Args args)
{
    return isOwnAffair(member) ? MemoryControl::get(member, args) : hosted_->get(member);
}

void MemoryHostedChild::put(const platform::Member& member, platform::Args args, const basic::Variant& value)
{
    if (isOwnAffair(member))
        MemoryControl::put(member, args, value);
    else
        hosted_->put(member, value);
}

std::shared_ptr<MemoryControl> makeControl(std::string_view className, std::string name, MemoryWorld& world)
{
    namespace classes = platform::classes;
    if (className == classes::Fußzeile)
        return std::make_shared<MemoryFooter>(className, std::move(name), world);
    if (className == classes::VWSVarIn)
        return std::make_shared<MemoryVarIn>(className, std::move(name), world);
    if (className == classes::Schalter)
        return std::make_shared<MemorySwitch>(className, std::move(name), world);
    if (className == classes::Label) return std::make_shared<MemoryLabel>(className, std::move(name), world);
    if (className == classes::PictureBox || className == classes::VWSPicBox)
        return std::make_shared<MemoryPictureBox>(className, std::move(name), world);
    if (className == classes::VWSLanguage)
        return std::make_shared<MemoryLanguage>(className, std::move(name), world);
    if (className == classes::ScrollBar)
        return std::make_shared<MemoryScrollBar>(className, std::move(name), world);
    if (className == classes::ServoMain || className == classes::ServoMenu)
        return std::make_shared<MemoryHostedChild>(className, std::move(name), world);
    return std::make_shared<MemoryControl>(className, std::move(name), world);
}

float textWidthOf(std::string_view text, const MemoryWorld& world)
{
    constexpr float pixelsPerCharacter = 7;
    std::size_t characters = 0;
    for (const char byte : text)
        if ((static_cast<unsigned char>(byte) & 0xC0U) != 0x80U) ++characters;
    return static_cast<float>(characters) * pixelsPerCharacter * world.twipsPerPixelX;
}

} // namespace servopanel::recording

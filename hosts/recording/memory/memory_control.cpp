#include "recording/memory/memory_control.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "basic/text.h"
#include "platform/ids.h"
#include "recording/memory/failures.h"

#include <cstdint>
#include <utility>
#include <variant>

namespace servopanel::recording {

namespace {

using basic::VariantType;

basic::Variant startValue(Holds holds)
{
    switch (holds) {
    case Holds::Boolean: return false;
    case Holds::Int16: return std::int16_t{0};
    case Holds::Int32: return std::int32_t{0};
    case Holds::Single: return 0.0F;
    case Holds::Double: return 0.0;
    case Holds::Text: return "";
    case Holds::Picture:
    case Holds::Object: return basic::ObjectRef{};
    case Holds::AnyValue: break;
    }
    return {};
}

basic::Variant converted(const basic::Variant& value, Holds holds)
{
    switch (holds) {
    case Holds::Boolean: return basic::convert(value, VariantType::Boolean);
    case Holds::Int16: return basic::convert(value, VariantType::Int16);
    case Holds::Int32: return basic::convert(value, VariantType::Int32);
    case Holds::Single: return basic::convert(value, VariantType::Single);
    case Holds::Double: return basic::convert(value, VariantType::Double);
    case Holds::Text: return basic::convert(value, VariantType::Text);
    case Holds::Picture:
    case Holds::Object:
        if (value.type() != VariantType::Object) basic::raise(basic::ErrorNumber::TypeMismatch);
        return value;
    case Holds::AnyValue: break;
    }
    return value;
}

} // namespace

MemoryControl::MemoryControl(std::string_view className, std::string name, MemoryWorld& world)
    : className_{className}
    , name_{std::move(name)}
    , world_{world}
{
    for (const ControlProperty& property : commonProperties())
        keep(property.member.name, startValue(property.holds));
    for (const ControlProperty& property : ownProperties(className_))
        keep(property.member.name, startValue(property.holds));
    keep("Enabled", true);
}

std::string MemoryControl::keyOf(const platform::Member& member, const ControlProperty* property) const
{
    std::string key;
    if (property != nullptr)
        key = basic::upperCase(property->member.name);
    else if (member.isNamed())
        key = basic::upperCase(member.name);
    if (member.kind == platform::MemberKind::Method || properties_.count(key) == 0)
        basic::raise(basic::ErrorNumber::NoSuchMember);
    return key;
}

const basic::Variant& MemoryControl::kept(std::string_view property) const
{
    static const basic::Variant nothing;
    const auto found = properties_.find(basic::upperCase(property));
    return found == properties_.end() ? nothing : found->second;
}

bool MemoryControl::isSet(std::string_view property) const { return basic::toBoolean(kept(property)); }

void MemoryControl::keep(std::string_view property, basic::Variant value)
{
    properties_.insert_or_assign(basic::upperCase(property), std::move(value));
}

basic::Variant MemoryControl::get(const platform::Member& member, platform::Args)
{
    return properties_.at(keyOf(member, findProperty(className_, member)));
}

void MemoryControl::put(const platform::Member& member, platform::Args, const basic::Variant& value)
{
    const ControlProperty* property = findProperty(className_, member);
    const std::string key = keyOf(member, property);
    if (property != nullptr && property->holds == Holds::Object)
        basic::raise(basic::ErrorNumber::NoSuchMember);
    basic::Variant fitting = property == nullptr ? value : converted(value, property->holds);
    properties_.insert_or_assign(key, std::move(fitting));
    changed(property == nullptr ? member.name : property->member.name);
}

void MemoryControl::putRef(const platform::Member& member, platform::Args, const basic::Variant& object)
{
    const ControlProperty* property = findProperty(className_, member);
    const std::string key = keyOf(member, property);
    if (property == nullptr || property->holds != Holds::Object)
        basic::raise(basic::ErrorNumber::NoSuchMember);
    properties_.insert_or_assign(key, converted(object, Holds::Object));
    changed(property->member.name);
}

basic::Variant MemoryControl::call(const platform::Member&, platform::Args)
{
    basic::raise(basic::ErrorNumber::NoSuchMember);
}

void MemoryControl::setFirstValue(const platform::FirstValue& first)
{
    const basic::Variant value = std::visit([](auto known) { return basic::Variant{known}; }, first.value);
    const platform::Member member = platform::named(first.property);
    if (findProperty(className_, member) == nullptr) keep(first.property, value);
    put(member, {}, value);
}

void MemoryControl::copyPropertiesOf(const MemoryControl& other)
{
    properties_ = other.properties_;
    container_ = other.container_;
    keep("Visible", false);
    if (className_ == platform::classes::VWSVarIn) keep("VariablenName", "");
}

bool MemoryControl::isShown() const
{
    return isSet("Visible") && (container_ == nullptr || container_->isShown());
}

bool MemoryControl::isEnabled() const { return isSet("Enabled"); }

} // namespace servopanel::recording

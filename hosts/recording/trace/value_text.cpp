#include "recording/trace/value_text.h"

#include "basic/conversions.h"
#include "platform/ids.h"
#include "platform/pictures.h"

#include <charconv>
#include <iterator>

namespace servopanel::recording {

namespace {

template <class Number>
std::string shortest(Number value)
{
    if (value == Number{0}) return "0"; // also the negative zero
    // The largest double has 309 digits before the point, the smallest 324 zeros behind it and some digits.
    char buffer[512];
    const auto result = std::to_chars(std::begin(buffer), std::end(buffer), value, std::chars_format::fixed);
    return {std::begin(buffer), result.ptr};
}

std::string hexadecimal(std::uint32_t value, std::size_t digits, std::string_view signs)
{
    std::string text(digits, '0');
    for (std::size_t i = digits; i > 0; --i, value >>= 4U)
        text[i - 1] = signs[value & 0xFU];
    return text;
}

std::string objectReference(const basic::ObjectRef& object, const PathNames& paths)
{
    if (!object) return "<none>";
    if (const auto* traced = dynamic_cast<const TracedObject*>(object.get())) return traced->traceName();
    if (const auto* picture = dynamic_cast<const platform::Picture*>(object.get()))
        return "<picture " + paths.name(picture->file()) + ">";
    return "<object>";
}

std::string arrayText(const basic::Array& array, const PathNames& paths)
{
    std::string text = "[";
    for (const basic::Variant& element : array.elements) {
        if (text.size() > 1) text += ", ";
        text += valueText(element, paths);
    }
    return text + "]";
}

} // namespace

std::string numberText(float value) { return shortest(value); }

std::string numberText(double value) { return shortest(value); }

std::string inQuotes(std::string_view text)
{
    std::string result = "\"";
    for (const char sign : text) {
        if (sign == '\r')
            result += "\u240D";
        else if (sign == '\n')
            result += "\u240A";
        else
            result += sign;
        if (sign == '"') result += '"';
    }
    return result + "\"";
}

std::string colourText(std::int32_t colour)
{
    return hexadecimal(static_cast<std::uint32_t>(colour), 6, "0123456789ABCDEF");
}

std::string valueText(const basic::Variant& value, const PathNames& paths, ValueKind kind)
{
    using basic::VariantType;
    switch (value.type()) {
    case VariantType::Empty: return "empty";
    case VariantType::Null: return "null";
    case VariantType::Text: return inQuotes(*value.get<std::string>());
    case VariantType::Boolean: return *value.get<bool>() ? "true" : "false";
    case VariantType::Single: return numberText(*value.get<float>());
    case VariantType::Object: return objectReference(*value.get<basic::ObjectRef>(), paths);
    case VariantType::Array: return arrayText(*value.get<basic::Array>(), paths);
    case VariantType::Error:
        if (const auto* code = value.get<basic::ErrorCode>()) return "error " + basic::decimal(code->number);
        return "missing";
    case VariantType::Byte:
    case VariantType::Int16:
    case VariantType::Int32: {
        const std::int32_t number = basic::toInt32(value);
        if (kind == ValueKind::Boolean && (number == 0 || number == -1))
            return number == 0 ? "false" : "true";
        return basic::decimal(number);
    }
    case VariantType::Double:
    case VariantType::Currency:
    case VariantType::Date:
    case VariantType::Variant: break;
    }
    return numberText(basic::toDouble(value));
}

std::string memberText(const platform::Member& member)
{
    namespace Extender = platform::ids::Extender;
    if (member.isNamed()) return std::string{member.name};
    for (const platform::Member& common : {Extender::Left, Extender::Top, Extender::Width, Extender::Height,
             Extender::Visible, Extender::Enabled})
        if (member.id == common.id) return std::string{common.name};
    constexpr std::int32_t firstLong = 0x1000;
    if (member.id > -firstLong && member.id < firstLong) return basic::decimal(member.id);
    return "0x" + hexadecimal(static_cast<std::uint32_t>(member.id), 8, "0123456789abcdef");
}

std::string objectText(std::string_view owner, platform::ChildId child)
{
    if (child.name.empty()) return std::string{owner};
    std::string text;
    if (owner != "Servo") text = std::string{owner} + ".";
    text += child.name;
    if (child.hasIndex()) text += "(" + basic::decimal(std::int32_t{child.index}) + ")";
    return text;
}

} // namespace servopanel::recording

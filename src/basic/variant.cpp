#include "basic/variant.h"

#include "basic/conversions.h"
#include "basic/error.h"

template class std::vector<servopanel::basic::Variant>;

namespace servopanel::basic {

bool operator==(const Array& left, const Array& right)
{
    return left.elementType == right.elementType && left.lowerBound == right.lowerBound
        && left.elements == right.elements;
}

Variant::Variant(const Variant& other) = default;
Variant::Variant(Variant&& other) noexcept = default;
Variant& Variant::operator=(const Variant& other) = default;
Variant& Variant::operator=(Variant&& other) noexcept = default;
Variant::~Variant() = default;

Variant::Variant(std::string value)
    : value_{std::move(value)}
{
}

Variant::Variant(std::string_view value)
    : value_{std::string{value}}
{
}

Variant::Variant(const char* value)
    : value_{std::string{value}}
{
}

Variant::Variant(Array value)
    : value_{std::move(value)}
{
}

Variant::Variant(AnyObject value)
    : value_{std::move(value.object)}
{
}

bool operator==(const Variant& left, const Variant& right) { return left.value_ == right.value_; }

VariantType Variant::type() const
{
    // In the order of the alternatives of value_.
    constexpr VariantType types[]{VariantType::Empty, VariantType::Null, VariantType::Error,
        VariantType::Boolean, VariantType::Byte, VariantType::Int16, VariantType::Int32, VariantType::Single,
        VariantType::Double, VariantType::Currency, VariantType::Date, VariantType::Text, VariantType::Error,
        VariantType::Object, VariantType::Array};
    return types[value_.index()];
}

Variant doubles(const std::vector<double>& values)
{
    return Array{VariantType::Double, 0, std::vector<Variant>(values.begin(), values.end())};
}

namespace {

std::size_t position(const Array& array, std::int32_t index)
{
    const std::int64_t offset = std::int64_t{index} - array.lowerBound;
    if (offset < 0 || offset >= static_cast<std::int64_t>(array.elements.size()))
        raise(ErrorNumber::SubscriptOutOfRange);
    return static_cast<std::size_t>(offset);
}

} // namespace

const Variant& element(const Variant& array, std::int32_t index)
{
    const Array* elements = array.get<Array>();
    if (!elements) raise(ErrorNumber::TypeMismatch);
    return elements->elements[position(*elements, index)];
}

void setElement(Variant& array, std::int32_t index, const Variant& value)
{
    Array* elements = array.get<Array>();
    if (!elements) raise(ErrorNumber::TypeMismatch);
    Variant& target = elements->elements[position(*elements, index)];
    target = elements->elementType == VariantType::Variant ? value : convert(value, elements->elementType);
}

} // namespace servopanel::basic

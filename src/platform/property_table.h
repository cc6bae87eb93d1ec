#pragma once

#include "basic/conversions.h"
#include "basic/entry_guard.h"
#include "basic/error.h"
#include "basic/text.h"
#include "platform/member.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace servopanel::platform {

// One 16-bit property of a control of the library. Names compare without regard to case.
template <class C>
struct PropertyRow {
    std::string_view name;
    std::string_view procedure; // reports a value that does not convert
    void (C::*set)(std::int16_t);
    std::int16_t (C::*get)(); // nullptr: write only
};

// Error 438 when the control has no such property.
template <class C>
const PropertyRow<C>& findProperty(std::span<const PropertyRow<C>> rows, const Member& member)
{
    const std::string name = basic::upperCase(member.name);
    for (const PropertyRow<C>& row : rows)
        if (basic::upperCase(row.name) == name) return row;
    basic::raise(basic::ErrorNumber::NoSuchMember);
}

template <class C>
basic::Variant getProperty(std::span<const PropertyRow<C>> rows, C& control, const Member& member)
{
    const PropertyRow<C>& row = findProperty(rows, member);
    if (!row.get) basic::raise(basic::ErrorNumber::NoSuchMember);
    return (control.*row.get)();
}

template <class C>
void putProperty(std::span<const PropertyRow<C>> rows, C& control, basic::ErrorSink& errors,
    const Member& member, const basic::Variant& value)
{
    const PropertyRow<C>& row = findProperty(rows, member);
    basic::guardEntry(errors, row.procedure, [&] { (control.*row.set)(basic::toInt16(value)); });
}

} // namespace servopanel::platform

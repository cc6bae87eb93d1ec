#pragma once

#include "basic/conversions.h"
#include "basic/error.h"
#include "platform/child_id.h"
#include "platform/member.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace servopanel::platform {

// One event of a child and the member of the control that handles it. index is the element of a control array.
template <class C>
struct EventRow {
    std::string_view child; // empty: the control's own surface
    std::string_view event;
    void (*handle)(C& control, std::int16_t index, Args args);
};

// The row of an event, nullptr when the control does not handle it.
template <class C>
const EventRow<C>* findEvent(
    std::span<const EventRow<C>> rows, std::string_view child, std::string_view event)
{
    for (const EventRow<C>& row : rows)
        if (row.child == child && row.event == event) return &row;
    return nullptr;
}

// An argument of an event; error 9 when the host sent fewer.
inline const basic::Variant& argument(Args args, std::size_t position)
{
    if (position >= args.size()) basic::raise(basic::ErrorNumber::SubscriptOutOfRange);
    return args[position];
}
inline std::int16_t number(Args args, std::size_t position)
{
    return basic::toInt16(argument(args, position));
}
inline float twips(Args args, std::size_t position) { return basic::toSingle(argument(args, position)); }

} // namespace servopanel::platform

#pragma once

#include "basic/conversions.h"
#include "basic/entry_guard.h"
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
    std::string_view procedure; // reports arguments that do not convert
    void (*handle)(C& control, std::int16_t index, Args args);
};

// Hands an event to its handler; false when the control has none. Whatever escapes the handler is reported.
template <class C>
bool deliverEvent(std::span<const EventRow<C>> rows, C& control, basic::ErrorSink& errors, ChildId child,
    std::string_view event, Args args)
{
    for (const EventRow<C>& row : rows) {
        if (row.child != child.name || row.event != event) continue;
        basic::guardEntry(errors, row.procedure, [&] { row.handle(control, child.index, args); });
        return true;
    }
    return false;
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

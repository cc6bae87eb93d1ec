#pragma once

#include "basic/variant.h"
#include "platform/child_id.h"
#include "platform/member.h"
#include "recording/trace/path_names.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace servopanel::recording {

// An object that has a name in the trace, such as "ServoMain.SollwertL(5)".
class TracedObject {
public:
    TracedObject() = default;
    TracedObject(const TracedObject&) = delete;
    TracedObject& operator=(const TracedObject&) = delete;
    virtual ~TracedObject() = default;
    virtual const std::string& traceName() const = 0;
};

// How a value is to be taken: -1 and 0 of a Boolean member print as true and false, whatever their type.
enum class ValueKind { Plain, Boolean };

// The form that values have in traces.
std::string valueText(const basic::Variant& value, const PathNames& paths, ValueKind kind = ValueKind::Plain);

// A text in double quotes, its own quotes doubled. Line breaks become visible signs: an access is one line.
std::string inQuotes(std::string_view text);

// Decimal, in the shortest form that reads back as the same number.
std::string numberText(float value);
std::string numberText(double value);

// Six hexadecimal digits.
std::string colourText(std::int32_t colour);

// "Left", "8", "-513" or "0x68030007".
std::string memberText(const platform::Member& member);

// "ServoMain.Fußzeile", "ServoMenu.BildIm(3)"; the shell's children stand alone. An empty child is the control itself.
std::string objectText(std::string_view owner, platform::ChildId child);

} // namespace servopanel::recording

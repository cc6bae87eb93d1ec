#pragma once

#include "platform/child_id.h"

#include <span>
#include <string_view>
#include <variant>

namespace servopanel::platform {

// Bare class names of the controls that the forms hold.
namespace classes {
inline constexpr std::string_view Header = "Header";
inline constexpr std::string_view Fußzeile = "Fußzeile";
inline constexpr std::string_view Eingabemaske = "Eingabemaske";
inline constexpr std::string_view IniEingabe = "IniEingabe";
inline constexpr std::string_view ScrollBar = "ScrollBar";
inline constexpr std::string_view Schalter = "Schalter";
inline constexpr std::string_view VWSVarIn = "VWSVarIn";
inline constexpr std::string_view VWSVarOut = "VWSVarOut";
inline constexpr std::string_view VWSPicBox = "VWSPicBox";
inline constexpr std::string_view VWSIndex = "VWSIndex";
inline constexpr std::string_view VWSLangSelect = "VWSLangSelect";
inline constexpr std::string_view VWSLanguage = "VWSLanguage";
inline constexpr std::string_view Label = "Label";
inline constexpr std::string_view PictureBox = "PictureBox";
inline constexpr std::string_view Timer = "Timer";
inline constexpr std::string_view ServoMain = "ServoMain";
inline constexpr std::string_view ServoMenu = "ServoMenu";
} // namespace classes

// A property that a child has from the start. Numbers are 16-bit where whole, singles for geometry in twips.
struct FirstValue {
    std::string_view property;
    std::variant<bool, std::int16_t, std::int32_t, float, std::string_view> value;
};

// One child that a control's form holds when it is created. The table's order is the stacking order, the last on top.
// Children are invisible, enabled, empty and of size 0 at (0, 0) unless values says otherwise.
struct FormChild {
    ChildId id;
    std::string_view className;
    ChildId parent; // empty name: the control itself
    std::span<const FirstValue> values;
};

// The form of one control. It belongs to the library; hosts read it to make the children.
//
// Loading a further element of a control array copies the array's first element as it is at that moment: class,
// parent and all properties, but invisible and without a variable name, and it is stacked directly above the element
// of the array with the highest index so far.
using FormData = std::span<const FormChild>;

} // namespace servopanel::platform

#pragma once

#include "platform/member.h"

// The dispatch ids that the library uses, by class of control. Ids repeat between classes and mean something else in
// each. Behind every id: the type that crosses.
namespace servopanel::platform::ids {

// What the container of every control adds to it. Twips as single; Booleans.
namespace Extender {
inline constexpr Member Left = property(0x80010003, "Left");
inline constexpr Member Top = property(0x80010004, "Top");
inline constexpr Member Width = property(0x80010005, "Width");
inline constexpr Member Height = property(0x80010006, "Height");
inline constexpr Member Visible = property(0x80010007, "Visible");
inline constexpr Member Enabled = property(0x8001000d, "Enabled");
} // namespace Extender

// Input field of a process variable.
namespace VWSVarIn {
inline constexpr Member VariablenName = property(7, "VariablenName"); // text
inline constexpr Member Wert = property(8, "Wert"); // any value, as the machine holds it
inline constexpr Member Obergrenze = property(21, "Obergrenze"); // text
inline constexpr Member Untergrenze = property(22, "Untergrenze"); // text
inline constexpr Member Vordergrund =
    property(static_cast<std::uint32_t>(-513), "Vordergrund"); // 32-bit colour
} // namespace VWSVarIn

// Display of a process variable.
namespace VWSVarOut {
inline constexpr Member Wert = property(8, "Wert"); // any value
}

// Text display; a text that begins with "@" is a language text key that the display resolves itself.
namespace VWSIndex {
inline constexpr Member Hintergrund = property(17, "Hintergrund"); // 32-bit colour
inline constexpr Member Farbe = property(19, "Farbe"); // 32-bit colour
inline constexpr Member Text = property(28, "Text"); // text
} // namespace VWSIndex

// Language texts by key.
namespace VWSLanguage {
inline constexpr Member Text = method(34, "Text"); // (text) -> text
}

// Bar of footer keys. Keys are numbered from 1 and passed as a byte.
namespace Fußzeile {
inline constexpr Member Freigabe = method(0x68030004, "Freigabe"); // (byte, Boolean)
inline constexpr Member TextNummer = method(0x68030005, "TextNummer"); // (byte, 16-bit)
inline constexpr Member Farbe = method(0x68030006, "Farbe"); // (byte, 32-bit colour)
inline constexpr Member Bild = method(0x68030007, "Bild"); // (byte, text)
inline constexpr Member Einstellung = method(0x68030008, "Einstellung"); // (byte) -> 32-bit
} // namespace Fußzeile

// Numeric input mask.
namespace Eingabemaske {
inline constexpr Member Offen = property(0x68030000, "Offen"); // Boolean
inline constexpr Member Ziel = property(0x68030001, "Ziel"); // object, by reference
} // namespace Eingabemaske

// Editor of a parameter definition.
namespace IniEingabe {
inline constexpr Member Pass = property(0x68030004, "Pass"); // 16-bit access level
inline constexpr Member Max = property(0x68030005, "Max"); // double
inline constexpr Member Min = property(0x68030006, "Min"); // double
inline constexpr Member Offen = property(0x68030009, "Offen"); // Boolean
} // namespace IniEingabe

// Scroll bar. Positions are numbered from 1.
namespace ScrollBar {
inline constexpr Member Position = property(0x68030000, "Position"); // 16-bit
inline constexpr Member Seite = property(0x68030001, "Seite"); // 16-bit, what is visible at a time
inline constexpr Member Anzahl = property(0x68030002, "Anzahl"); // 16-bit, how much there is in all
inline constexpr Member Rahmen = property(0x68030004, "Rahmen"); // 16-bit, frame width in pixels
inline constexpr Member Aktiv = property(0x68030006, "Aktiv"); // Boolean
inline constexpr Member Gesperrt = property(0x68030007, "Gesperrt"); // Boolean
} // namespace ScrollBar

namespace Schalter {
inline constexpr Member Zustand =
    property(0x68030000, "Zustand"); // bit weight from the machine or Boolean; not 0 is on
inline constexpr Member Freigabe = property(0x68030001, "Freigabe"); // Boolean
} // namespace Schalter

} // namespace servopanel::platform::ids

// Properties by name.
namespace servopanel::platform::names {

inline constexpr Member Left = named("Left");
inline constexpr Member Top = named("Top");
inline constexpr Member Width = named("Width");
inline constexpr Member Height = named("Height");
inline constexpr Member Visible = named("Visible");
inline constexpr Member Enabled = named("Enabled");
inline constexpr Member Caption = named("Caption"); // text of a label
inline constexpr Member ForeColor = named("ForeColor"); // 32-bit colour of a label's text
inline constexpr Member Picture = named("Picture"); // picture or no picture
inline constexpr Member Alignment = named("Alignment"); // 0 left, 1 right, 2 centred; 3..5 the same mirrored
inline constexpr Member FontClass = named("FontClass"); // text, such as LSU12
inline constexpr Member FontName = named("Font.Name"); // text
inline constexpr Member FontCharset = named("Font.Charset"); // 16-bit
inline constexpr Member FontBold = named("Font.Bold"); // Boolean
inline constexpr Member FontWeight = named("Font.Weight"); // 16-bit
inline constexpr Member FontSize = named("Font.Size"); // points
inline constexpr Member BildInit = named("BildInit"); // 16-bit
inline constexpr Member BildShow = named("BildShow"); // 16-bit
inline constexpr Member SpracheGeandert = named("SpracheGeandert"); // 16-bit language number

} // namespace servopanel::platform::names

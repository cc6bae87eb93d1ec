#pragma once

#include "platform/form_data.h"

namespace servopanel::servo_page {

// The children that the page holds from the start: the first element of every array; BildInit loads the others. Places
// are those of a panel of 1280 x 1024 pixels. Properties beyond place, visibility and font:
//
//   all texts        Alignment (0 left, 1 right, 2 centred), Font.Size, Font.Bold, BackStyle (0: transparent)
//   VWSIndex         FontClass, Text, Farbe, Hintergrund, BorderStyle (1: framed as an input)
//   VWSLangSelect    Text, Farbe
//   VWSVarIn         VariablenName, Wert, Obergrenze, Untergrenze, Vordergrund    VWSVarOut  Wert
//   Label            Caption, ForeColor, BackColor, BorderStyle (1: thin frame), AutoSize, WordWrap
//   PictureBox       BackColor, BorderStyle, AutoRedraw        Timer          Interval (milliseconds), Enabled
//   ScrollBar        Position, Seite, Anzahl
platform::FormData servoMainForm();

} // namespace servopanel::servo_page

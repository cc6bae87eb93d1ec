#include "servo_page/structure/form.h"

#include "support/form_text.h"

#include <gtest/gtest.h>

namespace servopanel::servo_page {

// In design twips; further elements of the arrays are made from those here.
TEST(PageForm, HoldsTheFirstElementsFromBottomToTop)
{
    EXPECT_EQ(testing::textOf(servoMainForm()),
        R"(Timer: Timer, Left 0, Top 0, Width 15, Height 15, Interval 500, Enabled false
VWLanguage: VWSLanguage, Left 0, Top 0, Width 15, Height 15
Pseudo: VWSVarIn, Left 0, Top 0, Width 15, Height 15
Überschrift: VWSLangSelect, Left 105, Top 1635, Width 5700, Height 600, Visible true, Font.Size 14, Font.Bold true, Alignment 0, Farbe 0, BackStyle 0
ParaPic: VWSPicBox, Left 5940, Top 1635, Width 7305, Height 2190, Visible true, BorderStyle 0
ParaBeschriftung(0) in ParaPic: Label, Left 0, Top 0, Width 600, Height 240, Font.Size 10, AutoSize true, BackStyle 0
MainRahmen(1): PictureBox, Left 105, Top 3900, Width 9015, Height 9765, Visible true, BorderStyle 0, BackColor 12632256
MainRahmen(2): PictureBox, Left 9195, Top 3900, Width 9015, Height 9765, Visible true, BorderStyle 0, BackColor 12632256
MainBereich(1) in MainRahmen(1): PictureBox, Left 0, Top 0, Width 9015, Height 9765, Visible true, BorderStyle 0, BackColor 12632256, AutoRedraw true
MainBereich(2) in MainRahmen(2): PictureBox, Left 0, Top 0, Width 9015, Height 9765, Visible true, BorderStyle 0, BackColor 12632256, AutoRedraw true
BeschriftungL(1) in MainBereich(1): VWSIndex, Left 105, Top 165, Width 4395, Height 300, Alignment 0, Farbe 0, BackStyle 0, Font.Size 10, FontClass LSU10
BeschriftungL2(1) in MainBereich(1): VWSIndex, Left 105, Top 315, Width 4395, Height 300, Alignment 0, Farbe 0, BackStyle 0, Font.Size 10, FontClass LSU10
EinheitL(1) in MainBereich(1): VWSIndex, Left 7185, Top 165, Width 1725, Height 300, Alignment 0, Farbe 0, BackStyle 0, Font.Size 10, FontClass LSU10
SollwertL(1) in MainBereich(1): VWSVarIn, Left 4545, Top 45, Width 2550, Height 540, Alignment 1, Font.Size 12, VariablenName Ch-1.intern_v<.l2_01>
SchalterL(31) in MainBereich(1): Schalter, Left 4545, Top 7785, Width 2550, Height 540
PunktL(41) in MainBereich(1): VWSIndex, Left 4425, Top 9135, Width 120, Height 540, Alignment 2, Farbe 0, Hintergrund 12632256, Font.Size 12, FontClass LSU12
ZeichnungL(41) in MainBereich(1): VWSIndex, Left 4545, Top 9135, Width 765, Height 540, Alignment 2, Farbe 0, Hintergrund 12632256, BorderStyle 1, Font.Size 12, FontClass LSU12
BeschriftungR(11) in MainBereich(2): VWSIndex, Left 105, Top 165, Width 4395, Height 300, Alignment 0, Farbe 0, BackStyle 0, Font.Size 10, FontClass LSU10
BeschriftungR2(11) in MainBereich(2): VWSIndex, Left 105, Top 315, Width 4395, Height 300, Alignment 0, Farbe 0, BackStyle 0, Font.Size 10, FontClass LSU10
EinheitR(11) in MainBereich(2): VWSIndex, Left 7185, Top 165, Width 1725, Height 300, Alignment 0, Farbe 0, BackStyle 0, Font.Size 10, FontClass LSU10
SollwertR(11) in MainBereich(2): VWSVarIn, Left 4545, Top 45, Width 2550, Height 540, Alignment 1, Font.Size 12, VariablenName Ch-1.intern_v<.l2_11>
SchalterR(33) in MainBereich(2): Schalter, Left 4545, Top 7785, Width 2550, Height 540
PunktR(42) in MainBereich(2): VWSIndex, Left 4425, Top 9135, Width 120, Height 540, Alignment 2, Farbe 0, Hintergrund 12632256, Font.Size 12, FontClass LSU12
ZeichnungR(42) in MainBereich(2): VWSIndex, Left 4545, Top 9135, Width 765, Height 540, Alignment 2, Farbe 0, Hintergrund 12632256, BorderStyle 1, Font.Size 12, FontClass LSU12
ScrollBar: ScrollBar, Left 18285, Top 3900, Width 810, Height 9765, Visible true, Position 1, Seite 651, Anzahl 651
DetailBox: VWSPicBox, Left 105, Top 3900, Width 18990, Height 9765, BorderStyle 0
Beschriftung(101) in DetailBox: VWSIndex, Left 105, Top 120, Width 9390, Height 300, Alignment 0, Farbe 0, BackStyle 0, Font.Size 10, FontClass LSU10
Einheit(101) in DetailBox: VWSIndex, Left 7500, Top 120, Width 1650, Height 300, Alignment 0, Farbe 0, BackStyle 0, Font.Size 10, FontClass LSU10
IstWert(101) in DetailBox: VWSVarOut, Left 5010, Top 60, Width 2400, Height 420, Alignment 1, Font.Size 12
IstWertTab(121) in DetailBox: Label, Left 105, Top 5640, Width 4665, Height 480, Alignment 2, Font.Size 12, BackColor 12632256, BorderStyle 1
Fehlertext in DetailBox: Label, Left 105, Top 8400, Width 18750, Height 1200, Alignment 0, Font.Size 12, BackStyle 0, ForeColor 192, WordWrap true
Fußzeile: Fußzeile, Left 0, Top 13740, Width 19200, Height 1620, Visible true
IniEingabe: IniEingabe, Left 3210, Top 2235, Width 5400, Height 6900
Eingabemaske: Eingabemaske, Left 3210, Top 2235, Width 5400, Height 6900
)");
}

} // namespace servopanel::servo_page

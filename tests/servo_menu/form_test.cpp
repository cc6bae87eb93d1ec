#include "servo_menu/form.h"

#include "support/form_text.h"

#include <gtest/gtest.h>

namespace servopanel::servo_menu {

// In design twips; key pictures and captions get their places from the key grid.
TEST(MenuForm, HoldsTheMenuFromBottomToTop)
{
    EXPECT_EQ(testing::textOf(servoMenuForm()),
        R"(TempPicQuelle: PictureBox, Visible false, AutoSize true, AutoRedraw true, BackColor 12632256
TempPicZwischen: PictureBox, Visible false, AutoRedraw true, BackColor 12632256
TempPicZiel: PictureBox, Visible false, AutoRedraw true, BackColor 12632256
VWLanguage: VWSLanguage, Visible false
Überschrift: VWSIndex, Left 105, Top 1635, Width 18990, Height 600, Visible true, Font.Size 14, Font.Bold true, Text @Servo.Menu.0
BildIm(1): PictureBox, Visible false, Width 8940, Height 2685
BildIm(2): PictureBox, Visible false, Width 8940, Height 2685
BildIm(3): PictureBox, Visible false, Width 8940, Height 2685
BildIm(4): PictureBox, Visible false, Width 8940, Height 2685
BildIm(5): PictureBox, Visible false, Width 8940, Height 2685
BildIm(6): PictureBox, Visible false, Width 8940, Height 2685
BildIm(7): PictureBox, Visible false, Width 8940, Height 2685
BildIm(8): PictureBox, Visible false, Width 8940, Height 2685
Beschriftung(1): Label, Visible false, Width 7305, Height 420, Alignment 0, Font.Size 12, Font.Bold true
Beschriftung(2): Label, Visible false, Width 7305, Height 420, Alignment 0, Font.Size 12, Font.Bold true
Beschriftung(3): Label, Visible false, Width 7305, Height 420, Alignment 0, Font.Size 12, Font.Bold true
Beschriftung(4): Label, Visible false, Width 7305, Height 420, Alignment 0, Font.Size 12, Font.Bold true
Beschriftung(5): Label, Visible false, Width 7305, Height 420, Alignment 0, Font.Size 12, Font.Bold true
Beschriftung(6): Label, Visible false, Width 7305, Height 420, Alignment 0, Font.Size 12, Font.Bold true
Beschriftung(7): Label, Visible false, Width 7305, Height 420, Alignment 0, Font.Size 12, Font.Bold true
Beschriftung(8): Label, Visible false, Width 7305, Height 420, Alignment 0, Font.Size 12, Font.Bold true
ScrollBar: ScrollBar, Left 18285, Top 2340, Width 915, Height 11265, Visible true
Fußzeile: Fußzeile, Left 0, Top 13740, Width 19200, Height 1620, Visible true
)");
}

} // namespace servopanel::servo_menu

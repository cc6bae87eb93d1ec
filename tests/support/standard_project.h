#pragma once

#include <string_view>

namespace servopanel::testing {

// Set-up commands for a project in which nothing fails: one machine M1 with the servos 3, 5 and 7 at the list positions
// 1 to 3, a menu, English texts for servo 3, definitions for some of its items, access level 2, 1280 pixels. Later
// lines replace single things: "var Ch-1.intern<.passwort> = 5".
inline constexpr std::string_view standardProject = R"(
var Ch-1.intern<.ocxname> = ""
var Ch-1.intern<.aktuelle_maschine> = 1
var Ch-1.intern<.passwort> = 2
var Ch-1.intern<.servo_zeiger> = 0
var Ch-1.intern<.navi_password_countdown> = 10
var Ch-1.param_client<.arabisch> = false
var parameter<.aufloesung> = 1280
var parameter<.maschinenanzahl> = 1
var parameter<.maschinenbez_1> = "M1"
var parameter<.servo_anzahl_1> = 3
var parameter<.mit_navi> = false

var Ch1.M1_T_servo_3<.mM1_servopassiv_3> = false
var Ch1.M1_T_servo_3<.mM1_servo_para_3> = [1.5, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20]
var Ch1.M1_T_servo_3<.mM1_servo_para_un_3> = [0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0]
var Ch1.M1_T_servo_3<.mM1_servo_para_ob_3> = [100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100]
var Ch1.M1_T_servo_3<.mM1_servo_para2_3> = [21, 22, 23, 24]
var Ch1.M1_T_servo_3<.mM1_servo_para2_un_3> = [0, 0, 0, 0]
var Ch1.M1_T_servo_3<.mM1_servo_para2_ob_3> = [50, 50, 50, 50]
var Ch1.M1_T_servo_3<.mM1_servo_schalt_3> = 5
var Ch1.M1_T_servo_3<.mM1_servo_zeich_3> = [123456789, 7000012]
var Ch1.M1_T_servo_3<.mM1_servo_diag_31> = [1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 39, 40]
var Ch1.M1_T_servo_3<.mM1_servo_diag_32> = [101, 102, 103, 104, 105, 106, 107, 108, 109, 110, 111, 112, 113, 114, 115, 116, 117, 118, 119, 120, 121, 122, 123, 124, 125, 126, 127, 128, 129, 130, 131, 132, 133, 134, 135, 136, 137, 138, 139, 140]
var Ch1.M1_T_servo_3<.mM1_fetext_31> = "no fault"
var Ch1.M1_T_servo_3<.mM1_fetext_32> = "no fault 2"
var Ch1.M1_T_servo_3<.mM1_servoaender_3> = 0

var Ch1.M1_T_servo_5<.mM1_servopassiv_5> = false
var Ch1.M1_T_servo_5<.mM1_servo_para_5> = [51, 52, 53, 54, 55, 56, 57, 58, 59, 60, 61, 62, 63, 64, 65, 66, 67, 68, 69, 70]
var Ch1.M1_T_servo_5<.mM1_servo_para_un_5> = [0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0]
var Ch1.M1_T_servo_5<.mM1_servo_para_ob_5> = [100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100]
var Ch1.M1_T_servo_5<.mM1_servo_para2_5> = [1, 2, 3, 4]
var Ch1.M1_T_servo_5<.mM1_servo_para2_un_5> = [0, 0, 0, 0]
var Ch1.M1_T_servo_5<.mM1_servo_para2_ob_5> = [50, 50, 50, 50]
var Ch1.M1_T_servo_5<.mM1_servo_schalt_5> = 0
var Ch1.M1_T_servo_5<.mM1_servo_zeich_5> = [0, 0]
var Ch1.M1_T_servo_5<.mM1_servoaender_5> = 0

var Ch1.M1_T_servo_7<.mM1_servopassiv_7> = false
var Ch1.M1_T_servo_7<.mM1_servo_para_7> = [1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20]
var Ch1.M1_T_servo_7<.mM1_servo_para_un_7> = [0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0]
var Ch1.M1_T_servo_7<.mM1_servo_para_ob_7> = [9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9]
var Ch1.M1_T_servo_7<.mM1_servo_para2_7> = [1, 2, 3, 4]
var Ch1.M1_T_servo_7<.mM1_servo_para2_un_7> = [0, 0, 0, 0]
var Ch1.M1_T_servo_7<.mM1_servo_para2_ob_7> = [50, 50, 50, 50]
var Ch1.M1_T_servo_7<.mM1_servo_schalt_7> = 15
var Ch1.M1_T_servo_7<.mM1_servo_zeich_7> = [0, 0]
var Ch1.M1_T_servo_7<.mM1_servoaender_7> = 0

text Standard.15000 = "No permission"
text Servo.M1.Servo3.0 = "Feeder"
text Servo.M1.Servo3.1 = "Start position;mm"
text Servo.M1.Servo3.2 = "Speed of the feeder while the line is running;mm/s"
text Servo.M1.Servo3.25 = "Synchronous"
text Servo.M1.Servo3.61 = "Start"
text Servo.M1.Servo5.0 = "Cutter"
text Servo.M1.Servo7.0 = "Stacker"

db Servo\Servo.mdb M1 Ch1.M1_T_servo_3<.mM1_servo_para_3> 0 0 1000 0 100 1
db Servo\Servo.mdb M1 Ch1.M1_T_servo_3<.mM1_servo_para_3> 1 0 1000 0 100 3
db Servo\Servo.mdb M1 Ch1.M1_T_servo_3<.mM1_servo_para_3> 10 0 1000 0 100 1
db Servo\Servo.mdb M1 Ch1.M1_T_servo_3<.mM1_servo_para2_3> 0 0 1000 0 50 1
db Servo\Servo.mdb M1 Ch1.M1_T_servo_3<.mM1_servo_schalt_3> 0 0 1 0 1 1
db Servo\Servo.mdb M1 Ch1.M1_T_servo_3<.mM1_servo_schalt_3> 2 0 1 0 1 1
db Servo\Servo.mdb M1 Ch1.M1_T_servo_3<.mM1_servo_zeich_3> 0 0 999999999 0 999999999 1

file Parameter\Program.ini
[Project]
ServoWithMenu=TRUE
ServoWithFault=TRUE
[1Machine]
Servo1=3
Servo2=5
Servo3=7
Diag2Servo1=TRUE
end
file Servo\Servo.ini
[Machine1]
F1=TRUE
F2=TRUE
F3=TRUE
F5=TRUE
F6=TRUE
F7=TRUE
F8=TRUE
F9=TRUE
F10=TRUE
[Footer]
F1=Standard\F_Help_1280.gif
F2=Standard\F_Alarm_1280.gif
F3=Standard\F_Pass_
F5=Standard\F_PageUp_1280.gif
F6=Standard\F_PageDown_1280.gif
F7=Standard\empty_1280.gif
F8=Standard\empty_1280.gif
F9=Standard\F_Machine_1280.gif
F10=Servo\Servo_Diag_1280.gif
end
file Servo\Servo_3.ini
[Parameter]
1Col=ws
1Ali=0
1X=1500
1Y=300
end
picture Servo\ServoMain_1280.bmp 1280 1024
picture Servo\ServoDiag_1280.bmp 1266 651
picture Servo\ServoMenu_1280.bmp 1280 1024
picture Servo\Servo_3_1280.gif 400 140
picture Servo\Servo_5_1280.gif 400 140
picture Servo\Servo_7_1280.gif 487 146
picture C:\Temp\start.bmp 1 1
)";

} // namespace servopanel::testing

// The files that say where captions stand and which keys there are: the page of a servo whose INI files hold these bytes
// is shown, its diagnosis page too, and left for the menu.
#include "fuzz/fuzz.h"
#include "portable/text_decoding.h"
#include "recording/replay.h"
#include "support/standard_project.h"

#include <string>

namespace servopanel::fuzz {

void feed(std::string_view bytes)
{
    std::string text = portable::decodedText(std::string{bytes});
    if (text.size() > 10'000) text.resize(10'000);

    recording::Replay replay;
    replay.run(testing::standardProject);
    for (const char* name : {"Servo\\Servo_3.ini", "Servo\\Servo.ini"})
        replay.host().memoryProject().putText(name, text);
    replay.run("var Ch-1.intern<.servo_zeiger> = 1\ncreate\nshow\nkey! 8\nkey! 11\nmenukey! 11\nterminate\n");
}

} // namespace servopanel::fuzz

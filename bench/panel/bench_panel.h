#pragma once

#include "demo_copy.h"
#include "paint_watch.h"
#include "panel/runtime/panel.h"
#include "panel/tour/operator.h"

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::bench {

// The variables of the servo that is looked at: the first of the menu, which has every setpoint, switch and drawing
// number.
inline constexpr std::string_view servoPrefix = "Ch1.M1_T_servo_1<.mM1_";

// What a panel writes beside its work: a trace of everything that crosses the library's border, which engineers ask for,
// and a journal of what is written to the machine, which a panel on a line keeps.
struct Records {
    bool trace = false;
    bool journal = true;
};

// A panel as an operator has it, painted into memory. Its machine stands still, its clock too, and nothing ticks unless
// it is told to, so that each step can be measured by itself.
class BenchPanel {
public:
    explicit BenchPanel(const DemoCopy& copy, Records records = {});

    // Shows the window and makes its first screen. Returns when all is painted.
    void open();
    // From now on the page's timer does not come in between, and the header has taken up what is shown.
    void stopTicks();

    // Finger down and up on a place of the window, and everything that comes of it until all is painted.
    void tap(QWidget& target);
    QWidget& menuKey(std::int16_t key);
    QWidget& footerKey(int number);
    // One tick of the page's timer, until all is painted.
    void tick();
    // Enters a number into the first setpoint, unmeasured.
    void enter(const std::string& number);

    bool showsMenu() { return shows("ServoMenu"); }
    bool showsPage() { return shows("ServoMain"); }

    panel::Panel& panel() { return *panel_; }
    PaintWatch& paintings() { return paintings_; }
    // Names that the library and the panel have read since they were asked for.
    std::vector<std::string> takeReads();
    // Gives every value of the servo's parameters and its first diagnosis page another value, one of two.
    void changeEveryValue();

private:
    bool shows(std::string_view className);

    PaintWatch paintings_;
    std::vector<std::string> reads_;
    std::unique_ptr<panel::Panel> panel_;
    std::unique_ptr<panel::Operator> hands_;
    bool isOther_ = false;
};

} // namespace servopanel::bench

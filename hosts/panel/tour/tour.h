#pragma once

#include "panel/tour/operator.h"

#include <QImage>
#include <QTimer>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace servopanel::panel {

// Plays an operator's visit to the panel: chooses a servo, looks at its values, changes some of them, and leaves. Of
// every step a picture is saved, and what was written to the machine goes to standard output. What a project need not
// have is left out, and the tour says so.
class Tour {
public:
    // How long the tour waits, in ms. Tests do not wait for what nobody looks at.
    struct Pace {
        int settle = 30; // after every press and release
        int look = 700; // at each step's end, long enough for the page to refresh its values once
        int curve = 4000; // for trends of some length
    };

    // From now on every message that opens is kept as a picture and answered with OK.
    Tour(Panel& panel, std::filesystem::path folder, Pace pace);
    Tour(Panel& panel, std::filesystem::path folder)
        : Tour{panel, std::move(folder), Pace{}}
    {
    }

    // Exit status: 0 when every step found what it needed, else 1.
    int play();

private:
    void step(const std::string& name, const std::function<void()>& action = {});
    void save(const std::string& name);
    void readMessage();
    QImage picture();
    void say(const std::string& line);
    void leaveOut(const std::string& what);

    void menu();
    void diagnosis();
    void trend();
    void setpoints();
    void switchAndDrawing();
    void neighbours();
    void languages();
    void definition();
    void leave();

    // Numbers of actual values on the diagnosis page.
    std::vector<int> valuesWithTrend();

    // A setpoint that can be changed, and a value within its limits that differs from its own.
    struct Input {
        std::string name;
        std::int16_t index;
        std::string value;
        std::string tooLarge;
    };
    // which: 1 for the first of them on the page.
    std::optional<Input> freeSetpoint(int which);

    Panel& panel_;
    Operator operator_;
    std::filesystem::path folder_;
    Pace pace_;
    QTimer messages_;
    bool hasMenu_ = true;
    int number_ = 0;
};

} // namespace servopanel::panel

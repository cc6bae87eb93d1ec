#pragma once

#include "panel/tour/operator.h"

#include <QImage>
#include <QTimer>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace servopanel::panel {

// Plays an operator's visit to the panel: chooses a servo, looks at its values, changes some of them, and leaves. Of
// every step a picture is saved, and what was written to the machine goes to standard output.
class Tour {
public:
    // From now on every message that opens is kept as a picture and answered with OK.
    Tour(Panel& panel, std::filesystem::path folder);

    // Exit status: 0 when every step found what it needed, else 1.
    int play();

private:
    void step(const std::string& name, const std::function<void()>& action = {});
    void save(const std::string& name);
    void readMessage();
    QImage picture();
    void say(const std::string& line);

    void menu();
    void diagnosis();
    void trend();
    void setpoints();
    void switchAndDrawing();
    void neighbours();
    void languages();
    void definition();
    void leave();

    // The first setpoint that can be changed, and a value within its limits that differs from its own.
    struct Input {
        std::string name;
        std::int16_t index;
        std::string value;
        std::optional<std::string> tooLarge;
    };
    Input freeSetpoint(int which);

    Panel& panel_;
    Operator operator_;
    std::filesystem::path folder_;
    QTimer messages_;
    int number_ = 0;
};

} // namespace servopanel::panel

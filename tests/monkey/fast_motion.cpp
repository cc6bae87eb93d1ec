#include "monkey/fast_motion.h"

#include "support/standard_project.h"

#include <array>
#include <sstream>
#include <string_view>
#include <vector>

namespace servopanel::monkey {

namespace {

constexpr std::array<std::string_view, 16> round{
    "menudown BildIm 1 100 100\nmenuup BildIm 1 100 100", // to servo 3
    "key 10", // diagnosis pages
    "key 8", "key 7", "language 2", "key 10",
    "key 6", // to servo 5
    "key 10", "key 10",
    "key 6", // to servo 7
    "touch SollwertL 1", "mask cancel", "key 5", "key 5", "language 1",
    "key 11", // to the menu
};

constexpr std::array<std::string_view, 3> actualValues{"Ch1.M1_T_servo_3<.mM1_servo_diag_31>",
    "Ch1.M1_T_servo_3<.mM1_servo_diag_32>", "Ch1.M1_T_servo_5<.mM1_servo_diag_51>"};

// The names of the machine's own variables in the standard project.
std::vector<std::string> variablesOfTheMachine()
{
    std::vector<std::string> names;
    std::istringstream lines{testing::standardProject};
    for (std::string line; std::getline(lines, line);)
        if (line.compare(0, 8, "var Ch1.") == 0) names.push_back(line.substr(4, line.find(" = ") - 4));
    names.insert(names.end(), actualValues.begin(), actualValues.end());
    names.emplace_back("Ch1.M1_T_servo_5<.mM1_fetext_51>");
    return names;
}

} // namespace

std::span<const std::string_view> operatorsRound() { return round; }

FastMotion::FastMotion(Link link, std::size_t ticksOfALook)
    : ticksOfALook_{ticksOfALook}
{
    replay_.run(testing::standardProject);
    moveValues();
    replay_.run("var Ch1.M1_T_servo_5<.mM1_fetext_51> = \"no fault\"");
    replay_.run("create\nshow\n");
    if (link == Link::Good) return;
    for (const std::string& name : variablesOfTheMachine())
        replay_.run("fail read " + name);
}

std::size_t FastMotion::ticksOfARound() const { return round.size() * ticksOfALook_; }

void FastMotion::play(std::size_t ticks)
{
    for (std::size_t i = 0; i < ticks; ++i) {
        moveValues();
        // Each run drops the trace of the one before.
        replay_.run("timer");
        if (!replay_.lines("timer off").empty()) ++timerOff_;
        std::istringstream reads{replay_.lines("read ")};
        for (std::string line; std::getline(reads, line);) {
            ++reads_;
            if (line.size() > 7 && line.compare(line.size() - 7, 7, " failed") == 0) ++failedReads_;
        }
        if (++tick_ % ticksOfALook_ == 0) replay_.run(round[(tick_ / ticksOfALook_ - 1) % round.size()]);
    }
}

// Values of one and the same length: what is held must not depend on the hour.
void FastMotion::moveValues()
{
    const std::string value = std::to_string(100 + tick_ % 900);
    std::string values = "[" + value;
    for (int i = 1; i < 40; ++i)
        values.append(", ").append(value);
    values += "]";
    for (const std::string_view name : actualValues)
        replay_.run("var " + std::string{name} + " = " + values);
}

} // namespace servopanel::monkey

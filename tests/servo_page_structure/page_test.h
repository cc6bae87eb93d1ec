#pragma once

#include "support/replay_fixture.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace servopanel::testing {

// A test of the page of servo 3, the first of the three servos of the standard project.
class PageTest : public ReplayFixture {
protected:
    // Sets the project up, with more commands that replace parts of it, and creates and shows the page: the trace of
    // showing it.
    std::string show(std::string_view more = {})
    {
        run(standardProject);
        run("var Ch-1.intern<.servo_zeiger> = 1\n");
        run(more);
        run("create\n");
        return run("show\n");
    }

    // The lines of the last run that begin with one of these texts.
    std::string lines(std::initializer_list<std::string_view> beginnings) const
    {
        return replay.lines(beginnings);
    }
    std::string lines(std::string_view beginning) const { return replay.lines(beginning); }

    // What a property of the page is now, as the trace writes it.
    std::string state(const std::string& object)
    {
        const std::string answer = run("get ServoMain." + object + "\n");
        const std::size_t value = answer.rfind(" = ");
        if (value == std::string::npos) return answer;
        return answer.substr(value + 3, answer.size() - value - 4);
    }

    static std::string footer(int key, std::string_view operation, std::string_view value)
    {
        return "call ServoMain.Fußzeile." + std::string{operation} + "(" + std::to_string(key) + ", "
            + std::string{value} + ")\n";
    }
    static std::string picture(int key, std::string_view file)
    {
        return footer(key, "0x68030007", "\"" + std::string{file} + "\"");
    }
    static std::string enable(int key, bool on) { return footer(key, "0x68030004", on ? "true" : "false"); }
    static std::string colour(int key, std::string_view value) { return footer(key, "0x68030006", value); }
    static std::string textNumber(int key, int number)
    {
        return footer(key, "0x68030005", std::to_string(number));
    }
};

inline constexpr std::string_view silver = "12632256";
inline constexpr std::string_view green = "65280";

inline bool contains(std::string_view trace, std::string_view part)
{
    return trace.find(part) != std::string_view::npos;
}
inline std::size_t count(std::string_view trace, std::string_view part)
{
    std::size_t found = 0;
    for (std::size_t at = trace.find(part); at != std::string_view::npos; at = trace.find(part, at + 1))
        ++found;
    return found;
}

} // namespace servopanel::testing

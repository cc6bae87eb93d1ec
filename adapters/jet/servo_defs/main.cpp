#include "jet/servo_defs/tool.h"

#include <cstdio>
#include <exception>

int main(int count, char** arguments)
{
    using servopanel::jet::Result;
    try {
        servopanel::jet::ToolOutput output;
        const Result result = servopanel::jet::runTool({arguments + 1, arguments + count}, output);
        const bool written =
            std::fwrite(output.text.data(), 1, output.text.size(), stdout) == output.text.size()
            && std::fflush(stdout) == 0;
        std::fputs(output.errors.c_str(), stderr);
        if (!written) {
            std::fputs("servo-defs: the output cannot be written\n", stderr);
            return static_cast<int>(Result::Failed);
        }
        return static_cast<int>(result);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "servo-defs: %s\n", error.what());
        return static_cast<int>(Result::Failed);
    }
}

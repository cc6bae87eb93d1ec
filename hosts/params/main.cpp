#include "params/tool.h"

#include <cstdio>
#include <exception>

int main(int count, char** arguments)
try {
    using servopanel::params::Status;
    servopanel::params::ToolOutput output;
    const Status status = servopanel::params::runTool(
        {arguments + 1, arguments + count}, servopanel::params::ownSurroundings(), output);
    std::fputs(output.errors.c_str(), stderr);
    const bool written = std::fwrite(output.text.data(), 1, output.text.size(), stdout) == output.text.size()
        && std::fflush(stdout) == 0;
    if (written) return static_cast<int>(status);
    std::fputs("servo-params: the output cannot be written\n", stderr);
    return static_cast<int>(Status::Trouble);
} catch (const std::exception& error) {
    std::fprintf(stderr, "servo-params: %s\n", error.what());
    return static_cast<int>(servopanel::params::Status::Trouble);
}

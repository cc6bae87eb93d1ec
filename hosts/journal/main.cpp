#include "journal/tool.h"

#include <cstdio>
#include <exception>

int main(int count, char** arguments)
try {
    using servopanel::journal::Status;
    servopanel::journal::ToolOutput output;
    const Status status = servopanel::journal::runTool(
        {arguments + 1, arguments + count}, servopanel::journal::ownSurroundings("servo-journal"), output);
    const bool written = std::fwrite(output.text.data(), 1, output.text.size(), stdout) == output.text.size()
        && std::fflush(stdout) == 0;
    std::fputs(output.errors.c_str(), stderr);
    if (written) return static_cast<int>(status);
    std::fputs("servo-journal: the output cannot be written\n", stderr);
    return static_cast<int>(Status::Failed);
} catch (const std::exception& error) {
    std::fprintf(stderr, "servo-journal: %s\n", error.what());
    return static_cast<int>(servopanel::journal::Status::Failed);
}

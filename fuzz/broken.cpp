#include "fuzz/fuzz.h"

#include <cstdio>
#include <cstdlib>

namespace servopanel::fuzz {

void broken(std::string_view promise)
{
    std::fprintf(stderr, "Broken: %.*s\n", static_cast<int>(promise.size()), promise.data());
    std::abort();
}

} // namespace servopanel::fuzz

// The entry through which libFuzzer feeds a target.
#include "fuzz/fuzz.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    servopanel::fuzz::feed({reinterpret_cast<const char*>(data), size});
    return 0;
}

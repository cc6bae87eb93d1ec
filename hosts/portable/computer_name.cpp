#include "portable/computer_name.h"

#include <array>

#include <unistd.h>

namespace servopanel::portable {

std::string computerName(const std::string& otherwise)
{
    std::array<char, 256> name{};
    return ::gethostname(name.data(), name.size() - 1) == 0 && name[0] != '\0' ? name.data() : otherwise;
}

} // namespace servopanel::portable

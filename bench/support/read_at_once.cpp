#include "support/read_at_once.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <stdexcept>

namespace servopanel::bench {

void readAtOnce(const std::filesystem::path& file, std::string& content)
{
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status { };
    bool isRead = descriptor >= 0 && ::fstat(descriptor, &status) == 0;
    if (isRead) {
        content.resize(static_cast<std::size_t>(status.st_size));
        isRead = ::read(descriptor, content.data(), content.size()) == static_cast<ssize_t>(content.size());
    }
    ::close(descriptor);
    if (!isRead) throw std::runtime_error{"cannot read " + file.string()};
}

} // namespace servopanel::bench

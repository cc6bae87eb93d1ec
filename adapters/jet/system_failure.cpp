#include "jet/system_failure.h"

#include "portable/file_error.h"

#include <cerrno>
#include <system_error>

namespace servopanel::jet {

std::string lastReason() { return portable::reasonText({errno, std::generic_category()}); }

void raiseLast(JetError number, std::string_view what)
{
    const bool full = errno == ENOSPC || errno == EDQUOT || errno == EFBIG;
    const bool readOnly = errno == EACCES || errno == EPERM || errno == EROFS;
    raise(full         ? JetError::DiskFull
            : readOnly ? JetError::ReadOnly
                       : number,
        std::string{what} + ": " + lastReason());
}

} // namespace servopanel::jet

#include "jet/file_kind.h"

#include <algorithm>

namespace servopanel::jet {

FileKind kindOf(ByteView content)
{
    constexpr std::uint8_t databaseStart[]{0, 1, 0, 0};
    if (content.empty()) return FileKind::Empty;
    if (content.size() >= std::size(databaseStart)
        && std::equal(std::begin(databaseStart), std::end(databaseStart), content.begin()))
        return FileKind::Database;
    const bool hasZero = std::find(content.begin(), content.end(), 0) != content.end();
    return hasZero ? FileKind::Other : FileKind::Text;
}

} // namespace servopanel::jet

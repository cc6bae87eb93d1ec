#include "panel/runtime/link_quality.h"

namespace servopanel::panel {

LinkQuality linkQuality(const WatchedVariables& variables, ControlHost* part)
{
    if (!variables.linkIsGood()) return LinkQuality::Bad;
    if (part == nullptr) return LinkQuality::Good;
    int shown = 0;
    int stale = 0;
    part->forEach([&](std::string_view name, std::int16_t index, Child& child) {
        if (!valueSource(name, index) || child.viewOrNull() == nullptr || !child.view().isVisible()) return;
        ++shown;
        if (child.valueState() != ValueState::Fresh) ++stale;
    });
    if (stale == 0) return LinkQuality::Good;
    return stale == shown ? LinkQuality::Bad : LinkQuality::Partly;
}

} // namespace servopanel::panel

#include "panel/form/definition_mode.h"

#include "panel/form/control_host.h"
#include "panel/form/fusszeile.h"

namespace servopanel::panel {

bool changesDefinitions(ControlHost& page)
{
    constexpr int definitionsKey = 4;
    const auto* const footer = dynamic_cast<FußzeileChild*>(page.find("Fußzeile"));
    return footer != nullptr && footer->isActive(definitionsKey);
}

} // namespace servopanel::panel

#include "panel/look/panel_text.h"

namespace servopanel::panel {

std::string_view panelTextKey(PanelText text) { return machine::panelWord(text).key; }

QString panelWord(PanelText text, std::string_view languageCode)
{
    return QString::fromUtf8(machine::panelWord(text).in(languageCode));
}

} // namespace servopanel::panel

#pragma once

#include "machine/panel_words.h"

#include <QString>

#include <functional>
#include <string_view>

namespace servopanel::panel {

using machine::PanelText;

// "Panel.Ok" and so on.
std::string_view panelTextKey(PanelText text);

// The panel's own word in a language by its code; English where it does not know the language.
QString panelWord(PanelText text, std::string_view languageCode);

using PanelWords = std::function<QString(PanelText)>;

} // namespace servopanel::panel

#pragma once

#include "panel/look/panel_text.h"
#include "panel/runtime/languages.h"
#include "panel/runtime/watched_variables.h"
#include "panel/widgets/header_bar.h"

#include <map>
#include <string>

namespace servopanel::panel {

class ControlHost;

// Puts together what the header says: machine and access level out of process variables, the heading of the page below.
class HeaderWriter {
public:
    // All of them outlive it.
    HeaderWriter(WatchedVariables& variables, const Languages& languages, PanelWords words);

    // title: of the project. part: the shown control, nullptr when there is none.
    HeaderTexts write(const QString& title, ControlHost* part);

private:
    QString value(const std::string& variable);

    WatchedVariables& variables_;
    const Languages& languages_;
    PanelWords words_;
    std::map<std::string, QString> last_; // by variable; stays while the machine cannot be asked
};

} // namespace servopanel::panel

#pragma once

#include "panel/form/child.h"

namespace servopanel::panel {

// Language texts by key and the font of the current language, class VWSLanguage. Nothing of it is seen.
class VWSLanguage : public Child {
public:
    VWSLanguage(QWidget* parent, Services& services);
    void languageChanged() override;
};

} // namespace servopanel::panel

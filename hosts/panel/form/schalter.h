#pragma once

#include "panel/form/child.h"
#include "panel/widgets/switch_view.h"

namespace servopanel::panel {

// Switch, class Schalter. A touch is an event and changes nothing by itself.
class SchalterChild : public Child {
public:
    SchalterChild(QWidget* parent, Services& services);
    void languageChanged() override;

    SwitchView& lever() { return static_cast<SwitchView&>(view()); }

private:
    void enabledChanged() override { adapt(); }
    void adapt();

    basic::Variant state_{false}; // as it was put: Boolean or bit weight
    bool free_ = true;
};

} // namespace servopanel::panel

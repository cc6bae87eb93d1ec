#pragma once

#include "panel/form/beside.h"
#include "panel/form/child.h"
#include "panel/widgets/input_mask.h"

namespace servopanel::panel {

// Numeric input mask, class Eingabemaske. It edits the value of its target within the target's own limits, as they are by
// then, and reports
// a changed value once, when it is accepted, right before it reports that it is done.
class EingabemaskeChild : public Child {
public:
    EingabemaskeChild(QWidget* parent, Services& services, FindBeside findBeside);
    void languageChanged() override;
    void valuesShown() override;

    InputMask& mask() { return static_cast<InputMask&>(view()); }
    bool isOpen() const { return open_; }
    // Into the target, as another value that the operator has accepted before; nothing while it is not open.
    void enter(double value)
    {
        if (open_ && target_) take(value, true);
    }

private:
    void setOpen(bool open);
    Beside field() const;
    MaskLimits limits(const Beside& beside) const;
    void accepted(double value, bool changed);
    void take(double value, bool changed);
    void cancelled();

    FindBeside findBeside_;
    platform::ControlRef target_;
    bool open_ = false;
};

} // namespace servopanel::panel

#pragma once

#include "panel/form/child.h"
#include "panel/widgets/switch_view.h"

namespace servopanel::panel {

// Switch, class Schalter. A touch is an event and changes nothing by itself.
class SchalterChild : public Child {
public:
    SchalterChild(QWidget* parent, Services& services);
    void languageChanged() override;
    void setValueState(ValueState state) override;
    ValueState valueState() const override;
    bool isChanged() const override { return changed_; }
    void setBeingEdited(bool edited) override;
    // What the operator has toggled was written, refused or discarded: nothing waits any more.
    void settle();
    bool takesTouch() const { return free_ && enabled(); }
    // Whether the operator can see how it stands.
    bool isSeen() const { return valueState() != ValueState::Unknown; }

    SwitchView& lever() { return static_cast<SwitchView&>(view()); }

private:
    void enabledChanged() override { adapt(); }
    void adapt();
    void setState(const basic::Variant& state);

    basic::Variant state_{false}; // as it was put: Boolean or bit weight
    bool free_ = true;
    bool isKnown_ = false; // the machine's state was put
    bool changed_ = false; // the operator's state was put since
    bool isGivenUp_ = false; // it stands as the operator had it, and nothing waits to be written
    ValueState machine_ = ValueState::Fresh;
};

} // namespace servopanel::panel

#pragma once

#include "panel/form/text_child.h"

#include <array>

namespace servopanel::panel {

// Not so a text that reads like one.
bool isNumber(const basic::Variant& value);
// How a value of a process variable reads on the screen. Numbers have "." as their point.
QString valueText(const basic::Variant& value);

// Input field of a process variable, class VWSVarIn. A touch on it is an event; the mask then edits its value. Its value
// goes into the process variable of its name whenever it changes, and never comes from there.
class VWSVarIn : public TextChild {
public:
    VWSVarIn(QWidget* parent, Services& services);

    // For the mask: what the operator entered. Raises nothing.
    void enter(double value) { setValue(value); }
    void setBeingEdited(bool edited) override;
    bool isChanged() const override;

private:
    void lookChanged() override;
    void setValue(const basic::Variant& value);

    basic::Variant value_;
    std::string variable_;
    std::string upper_;
    std::string lower_;
};

// Display of a process variable, class VWSVarOut.
class VWSVarOut : public TextChild {
public:
    VWSVarOut(QWidget* parent, Services& services);

    // The display may show something else from now on, so the decimals of what it showed no longer count.
    void startAnew() { lastDecimals_.fill(0); }

private:
    void lookChanged() override;
    void show();
    int steadyDecimals(int decimals);

    basic::Variant value_;
    std::array<int, 8> lastDecimals_{};
    std::size_t next_ = 0;
};

} // namespace servopanel::panel

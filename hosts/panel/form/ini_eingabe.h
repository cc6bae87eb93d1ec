#pragma once

#include "panel/form/beside.h"
#include "panel/form/child.h"
#include "panel/widgets/definition_editor.h"

namespace servopanel::panel {

// Editor of a parameter's definition, class IniEingabe. Both ways out report that it is done; left without OK, it holds
// the values that it was opened with.
class IniEingabeChild : public Child {
public:
    // touched: what the operator has touched last; the editor is not told what it works on.
    IniEingabeChild(
        QWidget* parent, Services& services, FindBeside findBeside, std::function<Child*()> touched);
    void languageChanged() override;

    DefinitionEditor& editor() { return static_cast<DefinitionEditor&>(view()); }
    bool isOpen() const { return open_; }

private:
    void setOpen(bool open);
    void showField();
    void accepted(const Definition& definition);
    void cancelled();

    FindBeside findBeside_;
    std::function<Child*()> touched_;
    Child* field_ = nullptr; // whose definition is open; a control of the same form
    Definition definition_;
    bool open_ = false;
};

} // namespace servopanel::panel

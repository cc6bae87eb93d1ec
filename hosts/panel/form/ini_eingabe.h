#pragma once

#include "panel/form/child.h"
#include "panel/widgets/definition_editor.h"

namespace servopanel::panel {

// Editor of a parameter's definition, class IniEingabe. Both ways out report that it is done; left without OK, it holds
// the values that it was opened with.
class IniEingabeChild : public Child {
public:
    IniEingabeChild(QWidget* parent, Services& services);
    void languageChanged() override;

    DefinitionEditor& editor() { return static_cast<DefinitionEditor&>(view()); }
    bool isOpen() const { return open_; }

private:
    void accepted(const Definition& definition);
    void cancelled();

    Definition definition_;
    bool open_ = false;
};

} // namespace servopanel::panel

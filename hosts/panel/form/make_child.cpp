#include "panel/form/control_host.h"
#include "panel/form/eingabemaske.h"
#include "panel/form/fusszeile.h"
#include "panel/form/header.h"
#include "panel/form/ini_eingabe.h"
#include "panel/form/label.h"
#include "panel/form/schalter.h"
#include "panel/form/scroll_bar.h"
#include "panel/form/timer_child.h"
#include "panel/form/vws_index.h"
#include "panel/form/vws_language.h"
#include "panel/form/vws_var.h"

namespace servopanel::panel {

// The one place that knows which class name stands for which control of the panel.
ChildRef ControlHost::makeChild(std::string_view className, QWidget* parent)
{
    namespace classes = platform::classes;
    Services& panel = surroundings_.services;
    if (className == classes::VWSVarIn) return std::make_shared<VWSVarIn>(parent, panel);
    if (className == classes::VWSVarOut) return std::make_shared<VWSVarOut>(parent, panel);
    if (className == classes::VWSIndex || className == classes::VWSLangSelect)
        return std::make_shared<VWSIndex>(std::string{className}, parent, panel);
    if (className == classes::VWSLanguage) return std::make_shared<VWSLanguage>(parent, panel);
    if (className == classes::VWSPicBox || className == classes::PictureBox)
        return std::make_shared<PictureChild>(std::string{className}, parent, panel);
    if (className == classes::Label) return std::make_shared<Label>(parent, panel);
    if (className == classes::Timer) return std::make_shared<TimerChild>(parent, panel, surroundings_.gate);
    if (className == classes::Fußzeile)
        return std::make_shared<FußzeileChild>(
            parent, panel, [isMenu = this->className() == classes::ServoMenu](int key) {
                constexpr int firstOfPage = 4;
                constexpr int firstOfMenu = 11;
                return key >= (isMenu ? firstOfMenu : firstOfPage);
            });
    if (className == classes::ScrollBar) return std::make_shared<ScrollBarChild>(parent, panel);
    if (className == classes::Schalter) return std::make_shared<SchalterChild>(parent, panel);
    if (className == classes::IniEingabe)
        return std::make_shared<IniEingabeChild>(
            parent, panel, [this](const platform::Control& input) { return beside(input); },
            [this] { return touched_; });
    if (className == classes::Eingabemaske)
        return std::make_shared<EingabemaskeChild>(
            parent, panel, [this](const platform::Control& input) { return beside(input); });
    if (className == classes::Header)
        return std::make_shared<HeaderChild>(parent, panel, surroundings_.header);
    if (className == classes::ServoMain || className == classes::ServoMenu)
        return std::make_shared<ControlHost>(std::string{className}, parent, surroundings_);
    basic::raise(basic::ErrorNumber::ObjectNotSet,
        "The panel has no control of class '" + std::string{className} + "'");
}

} // namespace servopanel::panel

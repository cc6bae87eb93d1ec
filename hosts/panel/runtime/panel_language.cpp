// The words of a panel, in the language of the operator.
#include "panel/look/language_look.h"
#include "panel/look/qt_text.h"
#include "panel/runtime/panel.h"
#include "panel/runtime/panel_variables.h"
#include "platform/ids.h"

namespace servopanel::panel {

using basic::Variant;

// The library asks for the direction whenever it starts a control; the panel's own widgets follow the stage at once.
void Panel::applyLanguage()
{
    const bool rightToLeft = languages_.isRightToLeft();
    setLanguageLook(languages_.look());
    setVariable(rightToLeftVariable, Variant{rightToLeft});
    const std::string name = title();
    window_.setWindowTitle(name.empty() ? QStringLiteral("servo-panel") : toQt(name));
    window_.stage().setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
}

// The project's name in the language of the operator, where the texts have one.
std::string Panel::title()
{
    const std::string* const own = languages_.find("Panel.Title");
    return own == nullptr || own->empty() ? file_.title : *own;
}

QString Panel::word(PanelText text)
{
    const std::string* const own = languages_.find(panelTextKey(text));
    const bool hasOwn = own != nullptr && !own->empty();
    return hasOwn ? toQt(*own) : panelWord(text, languages_.currentCode());
}

std::vector<HeaderLanguage> Panel::languages()
{
    std::vector<HeaderLanguage> result;
    for (const Languages::Language& language : languages_.all())
        result.push_back({language.settings.number, toQt(language.settings.name)});
    return result;
}

void Panel::chooseLanguage(int number)
{
    if (!languages_.choose(static_cast<std::int16_t>(number))) return;
    applyLanguage();
    retranslate();
    rememberChoices();
}

// Everything that repeats texts of the project or shows words of the panel.
void Panel::retranslate()
{
    if (servo_) servo_->languageChanged();
    trends_.languageChanged();
    errors_.languageChanged();
    confirms_.languageChanged(shownPart());
    window_.stage().update();
}

// The library tells a new language to the visible part only, and a menu that was built before would come back with the names
// of the old one.
void Panel::followMenuLanguage(std::string_view event)
{
    const ControlHost* const part = shownPart();
    if (part == nullptr || part->className() != platform::classes::ServoMenu) return;
    const bool isToBeTold = menuLanguage_ && *menuLanguage_ != languages_.current();
    if (isToBeTold && event != "SpracheGeandert")
        gate_.later([this] { tellMenuLanguage(); });
    else
        menuLanguage_ = languages_.current();
}

void Panel::tellMenuLanguage()
{
    const ControlHost* const part = shownPart();
    if (part == nullptr || part->className() != platform::classes::ServoMenu) return;
    if (auto* header = dynamic_cast<HeaderChild*>(servo_->find("Header"))) header->reportLanguage();
}

HeaderTexts Panel::headerTexts() { return headerWriter_.write(toQt(title()), shownPart()); }

} // namespace servopanel::panel

#include "panel/form/vws_language.h"

#include "basic/conversions.h"
#include "platform/ids.h"

namespace servopanel::panel {

using basic::Variant;
namespace names = platform::names;

VWSLanguage::VWSLanguage(QWidget* parent, Services& panel)
    : Child{"VWSLanguage", *new QWidget{parent}, panel}
{
    addMethod(platform::ids::VWSLanguage::Text, 1,
        [this](platform::Args args) { return Variant{services().text(basic::toText(args[0]))}; });
    languageChanged();
}

void VWSLanguage::languageChanged()
{
    const LanguageFont font = services().font();
    put(names::FontName, font.name);
    put(names::FontCharset, font.charset);
    put(names::FontWeight, font.weight);
}

} // namespace servopanel::panel

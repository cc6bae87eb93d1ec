#include "panel/form/ini_eingabe.h"

#include "basic/conversions.h"
#include "platform/ids.h"

namespace servopanel::panel {

using basic::Variant;
namespace ids = platform::ids::IniEingabe;

IniEingabeChild::IniEingabeChild(
    QWidget* parent, Services& panel, FindBeside findBeside, std::function<Child*()> touched)
    : Child{"IniEingabe",
        *new DefinitionEditor{parent, [&panel](PanelText text) { return panel.word(text); }}, panel}
    , findBeside_{std::move(findBeside)}
    , touched_{std::move(touched)}
{
    addProperty(
        ids::Pass, [this] { return Variant{definition_.level}; },
        [this](const Variant& value) { definition_.level = basic::toInt16(value); });
    addProperty(
        ids::Max, [this] { return Variant{definition_.most}; },
        [this](const Variant& value) { definition_.most = basic::toDouble(value); });
    addProperty(
        ids::Min, [this] { return Variant{definition_.least}; },
        [this](const Variant& value) { definition_.least = basic::toDouble(value); });
    addProperty(
        ids::Offen, [this] { return Variant{open_}; },
        [this](const Variant& value) { setOpen(basic::toBoolean(value)); });
    editor().setHandlers(
        [this](const Definition& definition) { accepted(definition); }, [this] { cancelled(); });
}

void IniEingabeChild::setOpen(bool open)
{
    open_ = open;
    if (field_ != nullptr) field_->setBeingEdited(false);
    field_ = open && touched_ ? touched_() : nullptr;
    if (!open) return;
    if (field_ != nullptr) field_->setBeingEdited(true);
    showField();
    editor().start(definition_);
}

void IniEingabeChild::showField()
{
    const Beside beside = field_ != nullptr && findBeside_ ? findBeside_(*field_) : Beside{};
    editor().setField(beside.caption, beside.unit);
}

void IniEingabeChild::languageChanged()
{
    if (!open_ || viewOrNull() == nullptr) return;
    showField();
    editor().languageChanged();
}

void IniEingabeChild::accepted(const Definition& definition)
{
    if (!open_) return;
    services().operation("ini " + basic::decimal(definition.least) + " " + basic::decimal(definition.most)
        + " " + basic::decimal(std::int32_t{definition.level}));
    definition_ = definition;
    raise("EingabeFertig");
}

void IniEingabeChild::cancelled()
{
    if (!open_) return;
    services().operation("ini cancel");
    raise("EingabeFertig");
}

} // namespace servopanel::panel

#include "panel/form/eingabemaske.h"

#include "basic/conversions.h"
#include "panel/form/vws_var.h"
#include "platform/ids.h"

namespace servopanel::panel {

using basic::Variant;
namespace ids = platform::ids::Eingabemaske;
namespace VWSVarInIds = platform::ids::VWSVarIn;

namespace {

// A limit as the machine gives it; a text that is no number limits nothing.
std::optional<double> limit(platform::Control& target, const platform::Member& member)
{
    try {
        const Variant text = target.get(member);
        if (basic::toText(text).empty()) return {};
        return basic::toDouble(text);
    } catch (const basic::Error&) {
        return {};
    }
}

double presentValue(platform::Control& target)
{
    try {
        return basic::toDouble(target.get(VWSVarInIds::Wert));
    } catch (const basic::Error&) {
        return 0;
    }
}

} // namespace

EingabemaskeChild::EingabemaskeChild(QWidget* parent, Services& panel, FindBeside findBeside)
    : Child{"Eingabemaske", *new InputMask{parent, [&panel](PanelText text) { return panel.word(text); }},
        panel}
    , findBeside_{std::move(findBeside)}
{
    addProperty(
        ids::Offen, [this] { return Variant{open_}; },
        [this](const Variant& value) { setOpen(basic::toBoolean(value)); });
    addReference(ids::Ziel, [this](const Variant& value) {
        const basic::ObjectRef* object = value.get<basic::ObjectRef>();
        target_ = object ? std::dynamic_pointer_cast<platform::Control>(*object) : nullptr;
        if (!target_) basic::raise(basic::ErrorNumber::TypeMismatch);
    });
    mask().setHandlers(
        [this](double value, bool changed) { accepted(value, changed); }, [this] { cancelled(); });
}

void EingabemaskeChild::setOpen(bool open)
{
    open_ = open;
    auto* input = dynamic_cast<VWSVarIn*>(target_.get());
    if (input != nullptr) input->setBeingEdited(open);
    if (!open || !target_) return;
    MaskTask task;
    if (findBeside_) {
        const Beside beside = findBeside_(*target_);
        task.title = beside.caption;
        task.unit = beside.unit;
    }
    task.value = presentValue(*target_);
    task.lower = limit(*target_, VWSVarInIds::Untergrenze);
    task.upper = limit(*target_, VWSVarInIds::Obergrenze);
    mask().start(task);
}

void EingabemaskeChild::accepted(double value, bool changed)
{
    if (!open_ || !target_) return;
    services().operation("mask " + basic::decimal(value));
    if (changed) {
        if (auto* input = dynamic_cast<VWSVarIn*>(target_.get()))
            input->enter(value);
        else
            target_->put(VWSVarInIds::Wert, Variant{value});
        raise("EingabeAenderung");
    }
    raise("Eingabefertig");
}

void EingabemaskeChild::cancelled()
{
    if (!open_) return;
    services().operation("mask cancel");
    raise("Eingabefertig");
}

void EingabemaskeChild::languageChanged()
{
    if (viewOrNull() != nullptr) mask().languageChanged();
}

} // namespace servopanel::panel

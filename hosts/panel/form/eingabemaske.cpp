#include "panel/form/eingabemaske.h"

#include "basic/conversions.h"
#include "panel/form/vws_var.h"
#include "platform/ids.h"

#include <cmath>

namespace servopanel::panel {

using basic::Variant;
namespace ids = platform::ids::Eingabemaske;
namespace VWSVarInIds = platform::ids::VWSVarIn;

namespace {

// A limit as the machine gives it, nothing where it gives none. isBroken: what it gives is no number.
std::optional<double> limit(platform::Control& target, const platform::Member& member, bool& isBroken)
{
    try {
        const Variant text = target.get(member);
        if (basic::toText(text).empty()) return {};
        const double number = basic::toDouble(text);
        if (std::isfinite(number)) return number;
    } catch (const basic::Error& error) {
        if (error.number == static_cast<std::int32_t>(basic::ErrorNumber::NoSuchMember)) return {};
    }
    isBroken = true;
    return {};
}

// The value as the page writes it, where it is one.
std::string presentNumber(platform::Control& target)
{
    try {
        const Variant value = target.get(VWSVarInIds::Wert);
        return isNumber(value) ? basic::toText(value) : basic::decimal(basic::toDouble(value));
    } catch (const basic::Error&) {
        return {}; // the operator starts from nothing rather than from a number that nobody gave
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
    if (auto* input = dynamic_cast<Child*>(target_.get())) input->setBeingEdited(open);
    if (!open || !target_) return;
    MaskTask task;
    const Beside beside = field();
    task.title = beside.caption;
    task.unit = beside.unit;
    if (beside.value == ValueState::Unknown)
        task.number.clear();
    else
        task.number = presentNumber(*target_);
    task.isWhole = beside.isWhole;
    task.isOld = beside.value == ValueState::Stale;
    task.limits = limits(beside);
    mask().start(task);
}

MaskLimits EingabemaskeChild::limits(const Beside& beside) const
{
    bool isBroken = false;
    MaskLimits limits;
    limits.lower = limit(*target_, VWSVarInIds::Untergrenze, isBroken);
    limits.upper = limit(*target_, VWSVarInIds::Obergrenze, isBroken);
    limits.state = isBroken ? ValueState::Unknown : beside.limits;
    return limits;
}

void EingabemaskeChild::valuesShown()
{
    if (open_ && target_ && viewOrNull() != nullptr) mask().setLimits(limits(field()));
}

void EingabemaskeChild::accepted(double value, bool changed)
{
    if (!open_ || !target_) return;
    // The last word is the machine's.
    mask().setLimits(limits(field()));
    if (mask().check()) take(value, changed);
}

void EingabemaskeChild::take(double value, bool changed)
{
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

Beside EingabemaskeChild::field() const { return findBeside_ && target_ ? findBeside_(*target_) : Beside{}; }

void EingabemaskeChild::languageChanged()
{
    if (viewOrNull() == nullptr) return;
    mask().languageChanged();
    if (!open_) return;
    const Beside beside = field();
    mask().setField(beside.caption, beside.unit);
}

} // namespace servopanel::panel

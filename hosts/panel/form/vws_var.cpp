#include "panel/form/vws_var.h"

#include "basic/conversions.h"
#include "panel/look/colours.h"
#include "platform/ids.h"

#include <algorithm>

namespace servopanel::panel {

using basic::Variant;

namespace {

constexpr int mostDecimals = 6;
constexpr std::int32_t changedInk = 0x008000; // changed, not yet written

int decimalsOf(const std::string& text)
{
    const std::size_t point = text.find('.');
    if (point == std::string::npos || text.find('E') != std::string::npos) return 0;
    return static_cast<int>(text.size() - point - 1);
}

} // namespace

bool isNumber(const Variant& value)
{
    switch (value.type()) {
    case basic::VariantType::Byte:
    case basic::VariantType::Int16:
    case basic::VariantType::Int32:
    case basic::VariantType::Single:
    case basic::VariantType::Double:
    case basic::VariantType::Currency: return true;
    default: return false;
    }
}

QString valueText(const Variant& value)
{
    try {
        return QString::fromStdString(basic::toText(value));
    } catch (const basic::Error&) {
        return QStringLiteral("?"); // an array or an object is nothing to read
    }
}

VWSVarIn::VWSVarIn(QWidget* parent, Services& services)
    : TextChild{"VWSVarIn", *new TextView{parent}, services}
{
    namespace ids = platform::ids::VWSVarIn;
    const auto add = [this](const platform::Member& byId, std::string& field, bool copied) {
        for (const platform::Member& member : {byId, platform::named(byId.name)})
            addProperty(
                member, [&field] { return Variant{field}; },
                [&field](const Variant& value) { field = basic::toText(value); }, copied);
    };
    fixedSide_ = Qt::AlignAbsolute; // the places of a number stand below each other in every language
    add(ids::VariablenName, variable_, false);
    add(ids::Obergrenze, upper_, true);
    add(ids::Untergrenze, lower_, true);
    addProperty(
        ids::Wert, [this] { return value_; },
        [this](const Variant& value) {
            setValue(value);
            valuePut();
        });
    addProperty(
        ids::Vordergrund, [this] { return Variant{ink_}; },
        [this](const Variant& value) {
            ink_ = basic::toInt32(value);
            applyLook();
        });
    applyLook();
}

void VWSVarIn::setValue(const Variant& value)
{
    if (value == value_) return;
    value_ = value;
    if (viewOrNull() != nullptr) text().setText(valueText(value_));
    if (!variable_.empty()) services().mirror(variable_, value_);
}

void VWSVarIn::setBeingEdited(bool edited)
{
    if (viewOrNull() != nullptr) text().setBeingEdited(edited);
}

void VWSVarIn::lookChanged()
{
    text().setFrame(TextView::Frame::Field);
    text().setChanged(isChanged());
}

bool VWSVarIn::isChanged() const { return ink_ == changedInk; }

VWSVarOut::VWSVarOut(QWidget* parent, Services& services)
    : TextChild{"VWSVarOut", *new TextView{parent}, services}
{
    fixedSide_ = Qt::AlignAbsolute;
    addProperty(
        platform::ids::VWSVarOut::Wert, [this] { return value_; },
        [this](const Variant& value) {
            value_ = value;
            show();
        });
    applyLook();
}

void VWSVarOut::lookChanged() { text().setFrame(TextView::Frame::Value); }

// A value that runs through 12.4, 12 and 11.9 would jump to and fro; it keeps the decimals that it had lately.
int VWSVarOut::steadyDecimals(int decimals)
{
    lastDecimals_[next_] = std::min(decimals, mostDecimals);
    next_ = (next_ + 1) % lastDecimals_.size();
    return *std::max_element(lastDecimals_.begin(), lastDecimals_.end());
}

void VWSVarOut::show()
{
    if (!isNumber(value_)) {
        text().setText(valueText(value_));
        return;
    }
    const std::string plain = basic::decimal(basic::toDouble(value_));
    const int decimals = decimalsOf(plain);
    const int steady = steadyDecimals(decimals);
    if (plain.find('E') != std::string::npos) {
        text().setText(QString::fromStdString(plain));
        return;
    }
    if (decimals > steady) {
        text().setText(QString::number(basic::toDouble(value_), 'f', steady));
        return;
    }
    std::string shown = plain;
    if (decimals == 0 && steady > 0) shown += '.';
    shown.append(static_cast<std::size_t>(steady - decimals), '0');
    text().setText(QString::fromStdString(shown));
}

} // namespace servopanel::panel

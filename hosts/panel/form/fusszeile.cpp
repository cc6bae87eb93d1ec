#include "panel/form/fusszeile.h"

#include "basic/conversions.h"
#include "panel/look/colours.h"
#include "platform/ids.h"

#include <algorithm>

namespace servopanel::panel {

using basic::Variant;
using platform::Args;
namespace ids = platform::ids::Fußzeile;

namespace {

constexpr std::int32_t normalColour = 0xC0C0C0;
constexpr std::int16_t noText = 10000;

// A picture without a single visible point stands for no picture.
QImage seen(const QImage& picture)
{
    if (picture.isNull() || !picture.hasAlphaChannel()) return picture;
    const QImage pixels = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < pixels.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
        if (std::any_of(line, line + pixels.width(), [](QRgb pixel) { return qAlpha(pixel) != 0; }))
            return picture;
    }
    return {};
}

} // namespace

FußzeileChild::FußzeileChild(QWidget* parent, Services& panel, std::function<bool(int)> acts)
    : Child{"Fußzeile", *new FooterBar{parent}, panel}
    , acts_{std::move(acts)}
{
    keys_[hardwareKey].on = true;
    bar().setHandler([this](int key) {
        if (!services().takesKey(key)) press(key);
    });
    addMethod(ids::Freigabe, 2, [this](Args args) {
        const int key = basic::toByte(args[0]);
        keys_[key].on = basic::toBoolean(args[1]);
        show(key);
        return Variant{};
    });
    addMethod(ids::TextNummer, 2, [this](Args args) {
        const int key = basic::toByte(args[0]);
        keys_[key].textNumber = basic::toInt16(args[1]);
        show(key);
        return Variant{};
    });
    addMethod(ids::Farbe, 2, [this](Args args) {
        const int key = basic::toByte(args[0]);
        keys_[key].colour = basic::toInt32(args[1]);
        show(key);
        return Variant{};
    });
    addMethod(ids::Bild, 2, [this](Args args) {
        const int key = basic::toByte(args[0]);
        const std::string name = basic::toText(args[1]);
        if (FooterBar::hasKey(key))
            bar().key(key).setPicture(seen(name.empty() ? QImage{} : services().picture(name)));
        return Variant{};
    });
    addMethod(
        ids::Einstellung, 1, [this](Args args) { return Variant{keys_[basic::toByte(args[0])].colour}; });
}

void FußzeileChild::show(int number)
{
    if (!FooterBar::hasKey(number) || viewOrNull() == nullptr) return;
    const Key& key = keys_[number];
    TouchKey& shown = bar().key(number);
    const bool hasText = key.textNumber != 0 && key.textNumber != noText;
    shown.setText(hasText ? QString::fromStdString(
                      services().text("Standard." + basic::decimal(std::int32_t{key.textNumber})))
                          : QString{});
    shown.setHighlight(key.colour == normalColour ? std::nullopt : std::optional{fromLibrary(key.colour)});
    bar().setKeyOn(number, key.on && acts_(number));
    shown.setSign(key.on && !acts_(number));
}

bool FußzeileChild::isActive(int key) const
{
    const auto found = keys_.find(key);
    return found != keys_.end() && found->second.colour != normalColour;
}

void FußzeileChild::languageChanged()
{
    for (const auto& [number, key] : keys_)
        show(number);
}

void FußzeileChild::pressElsewhere(int key)
{
    if (FooterBar::hasKey(key) && viewOrNull() != nullptr && enabled()) bar().key(key).showPress();
    press(key);
}

void FußzeileChild::press(int key)
{
    const auto found = keys_.find(key);
    if (found == keys_.end() || !found->second.on || !enabled()) return;
    raise("TasteClick", {Variant{static_cast<std::int16_t>(key)}});
}

} // namespace servopanel::panel

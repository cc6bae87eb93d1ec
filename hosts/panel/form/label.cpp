#include "panel/form/label.h"

#include "basic/conversions.h"
#include "panel/look/colours.h"
#include "panel/look/twips.h"
#include "platform/ids.h"

namespace servopanel::panel {

using basic::Variant;
using platform::named;
namespace names = platform::names;

Label::Label(QWidget* parent, Services& services)
    : TextChild{"Label", *new TextView{parent}, services}
{
    backStyle_ = 0;
    growsDown_ = true; // below a caption there is a picture, above it another control
    addProperty(
        names::Caption, [this] { return Variant{caption_}; },
        [this](const Variant& value) {
            caption_ = basic::toText(value);
            showText(QString::fromStdString(caption_));
            fit();
        });
    for (const auto& [name, colour] :
        {std::pair{names::ForeColor, &ink_}, std::pair{named("BackColor"), &ground_}})
        addProperty(
            name, [colour = colour] { return Variant{*colour}; },
            [this, colour = colour](const Variant& value) {
                *colour = basic::toInt32(value);
                applyLook();
            });
    addProperty(
        named("AutoSize"), [this] { return Variant{autoSize_}; },
        [this](const Variant& value) {
            autoSize_ = basic::toBoolean(value);
            fit();
        });
    addProperty(
        named("WordWrap"), [this] { return Variant{wordWrap_}; },
        [this](const Variant& value) {
            wordWrap_ = basic::toBoolean(value);
            applyLook();
        });
    applyLook();
}

void Label::lookChanged()
{
    // A framed label is a cell of a table of values.
    text().setFrame(borderStyle_ != 0 ? TextView::Frame::Value : TextView::Frame::None);
    text().setBackground(
        backStyle_ != 0 && borderStyle_ == 0 ? std::optional{fromLibrary(ground_)} : std::nullopt);
    text().setWrapping(wordWrap_);
    fit();
}

void Label::placed()
{
    const QWidget* const container = view().parentWidget();
    if (autoSize_ && container != nullptr)
        view().setGeometry(view().geometry().intersected(container->rect()));
    TextChild::placed();
}

void Label::fit()
{
    if (!autoSize_) return;
    const QSize size = text().textSize();
    setSize(toTwips(size.width()), toTwips(size.height()));
}

} // namespace servopanel::panel

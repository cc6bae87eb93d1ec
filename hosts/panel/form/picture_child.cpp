#include "panel/form/picture_child.h"

#include "basic/conversions.h"
#include "panel/form/text_child.h"
#include "panel/look/colours.h"
#include "panel/look/twips.h"
#include "platform/ids.h"

namespace servopanel::panel {

using basic::Variant;
using platform::named;

QImage imageOf(const Variant& picture)
{
    const basic::ObjectRef* object = picture.get<basic::ObjectRef>();
    if (object == nullptr) basic::raise(basic::ErrorNumber::TypeMismatch);
    if (!*object) return {};
    const auto* image = dynamic_cast<const PanelPicture*>(object->get());
    if (image == nullptr) basic::raise(basic::ErrorNumber::TypeMismatch);
    return image->image();
}

PictureChild::PictureChild(std::string className, QWidget* parent, Services& services)
    : Child{std::move(className), *new CanvasView{parent}, services}
{
    canvas().setTouchHandler(touchEvents(
        [this](std::string_view event, std::initializer_list<Variant> args) { raise(event, args); }));
    addProperty(
        platform::names::Picture, [this] { return picture_; },
        [this](const Variant& value) { setPicture(value); });
    addProperty(
        named("BackColor"), [this] { return Variant{ground_}; },
        [this](const Variant& value) {
            ground_ = basic::toInt32(value);
            canvas().canvas().setBackground(fromLibrary(ground_));
            canvas().refresh();
        });
    addProperty(
        named("AutoSize"), [this] { return Variant{autoSize_}; },
        [this](const Variant& value) { autoSize_ = basic::toBoolean(value); });
    addProperty(
        named("BorderStyle"), [this] { return Variant{borderStyle_}; },
        [this](const Variant& value) { borderStyle_ = basic::toInt16(value); });
    addProperty(
        named("AutoRedraw"), [this] { return Variant{autoRedraw_}; },
        [this](const Variant& value) { autoRedraw_ = basic::toBoolean(value); });
}

void PictureChild::placed()
{
    // A widget that was never shown learns of its size late; what is drawn needs it now.
    canvas().canvas().resize(canvas().size());
}

void PictureChild::enabledChanged() { canvas().setLocked(!enabled()); }

void PictureChild::setPicture(const Variant& value)
{
    const QImage image = imageOf(value);
    picture_ = value;
    if (autoSize_ && !image.isNull()) setSize(toTwips(image.width()), toTwips(image.height()));
    canvas().canvas().setPicture(image);
    canvas().refresh();
}

} // namespace servopanel::panel

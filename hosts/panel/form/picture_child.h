#pragma once

#include "panel/form/child.h"
#include "panel/widgets/canvas_view.h"
#include "platform/pictures.h"

#include <string>

namespace servopanel::panel {

// A picture of the panel: its pixels and where they came from.
class PanelPicture : public platform::Picture {
public:
    PanelPicture(QImage image, std::string file)
        : image_{std::move(image)}
        , file_{std::move(file)}
    {
    }
    std::string file() const override { return file_; }
    const QImage& image() const { return image_; }

private:
    QImage image_;
    std::string file_;
};

// The pixels of a picture value, a null image for no picture; error 13 for anything else.
QImage imageOf(const basic::Variant& picture);

// Picture box of either kind, classes PictureBox and VWSPicBox. It keeps what is drawn on it. With AutoSize it takes
// the size of its picture.
class PictureChild : public Child {
public:
    PictureChild(std::string className, QWidget* parent, Services& services);

    CanvasView& canvas() { return static_cast<CanvasView&>(view()); }

private:
    void placed() override;
    void enabledChanged() override;
    void setPicture(const basic::Variant& value);

    basic::Variant picture_{basic::ObjectRef{}};
    std::int32_t ground_ = 0xC0C0C0;
    std::int16_t borderStyle_ = 0;
    bool autoSize_ = false;
    bool autoRedraw_ = true; // what is drawn is always kept
};

} // namespace servopanel::panel

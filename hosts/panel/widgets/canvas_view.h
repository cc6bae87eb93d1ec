#pragma once

#include "panel/widgets/canvas.h"
#include "panel/widgets/touch_view.h"

namespace servopanel::panel {

// Shows a canvas, which always has the view's size.
class CanvasView : public TouchView {
public:
    explicit CanvasView(QWidget* parent);

    // After drawing, refresh() brings it to the screen.
    Canvas& canvas() { return canvas_; }
    void refresh() { update(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    Canvas canvas_;
};

} // namespace servopanel::panel

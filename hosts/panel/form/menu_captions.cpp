#include "panel/form/menu_captions.h"

#include "panel/form/control_host.h"
#include "panel/form/label.h"
#include "panel/form/scroll_bar.h"

namespace servopanel::panel {

namespace {
constexpr int gap = 3; // pixels between the name and the bar
} // namespace

void keepCaptionsClearOfScrollBar(ControlHost& menu)
{
    if (menu.className() != platform::classes::ServoMenu) return;
    Child* const bar = menu.find("ScrollBar");
    if (bar == nullptr || bar->viewOrNull() == nullptr || bar->view().isHidden()) return;
    const int edge = bar->view().mapTo(&menu.view(), QPoint{0, 0}).x() - gap;
    menu.forEach([&](std::string_view, std::int16_t, Child& child) {
        auto* const caption = dynamic_cast<Label*>(&child);
        if (caption == nullptr || caption->viewOrNull() == nullptr) return;
        const int covered =
            caption->view().mapTo(&menu.view(), QPoint{caption->view().width(), 0}).x() - edge;
        if (covered <= 0 || covered >= caption->view().width()) return;
        caption->view().resize(caption->view().width() - covered, caption->view().height());
    });
}

} // namespace servopanel::panel

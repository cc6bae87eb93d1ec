#include "widgets/orphaned_panel.h"

#include "panel/runtime/panel.h"

#include <utility>

namespace servopanel {

namespace {
constexpr int lookEveryMs = 10;
}

OrphanedPanel::OrphanedPanel(std::unique_ptr<panel::Panel> panel)
    : panel_{std::move(panel)}
{
    panel_->window().hide();
    panel_->window().setParent(nullptr);
    QObject::connect(&timer_, &QTimer::timeout, this, [this] { look(); });
    timer_.start(lookEveryMs);
}

OrphanedPanel::~OrphanedPanel() = default;

void OrphanedPanel::look()
{
    if (!panel_->isFree()) {
        panel_->endMessage();
        return;
    }
    timer_.stop();
    deleteLater();
}

} // namespace servopanel

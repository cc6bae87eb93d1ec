#pragma once

#include "basic/conversions.h"
#include "platform/control.h"
#include "platform/ids.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace servopanel::platform {

// Gives the members of a control words and fixes the exact type of every value that crosses. A facade lives for one
// statement; it adds no state and no logic. The members of the container (place, visibility) come with every control.
class Facade {
public:
    explicit Facade(ControlRef control)
        : control_{std::move(control)}
    {
    }

    // Twips.
    float Left() const { return basic::toSingle(control_->get(ids::Extender::Left)); }
    void Left(float twips) { control_->put(ids::Extender::Left, twips); }
    float Top() const { return basic::toSingle(control_->get(ids::Extender::Top)); }
    void Top(float twips) { control_->put(ids::Extender::Top, twips); }
    float Width() const { return basic::toSingle(control_->get(ids::Extender::Width)); }
    void Width(float twips) { control_->put(ids::Extender::Width, twips); }
    float Height() const { return basic::toSingle(control_->get(ids::Extender::Height)); }
    void Height(float twips) { control_->put(ids::Extender::Height, twips); }
    bool Visible() const { return basic::toBoolean(control_->get(ids::Extender::Visible)); }
    void Visible(bool visible) { control_->put(ids::Extender::Visible, visible); }
    void Enabled(bool enabled) { control_->put(ids::Extender::Enabled, enabled); }

protected:
    Control& control() const { return *control_; }

private:
    ControlRef control_;
};

} // namespace servopanel::platform

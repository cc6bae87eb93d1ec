#pragma once

#include "platform/child_id.h"
#include "platform/control.h"

#include <string_view>

namespace servopanel::platform {

// The children of one control. Implemented by hosts. After the control's end every call raises error 91.
class Form {
public:
    virtual ~Form() = default;

    // A child of the control; error 91 when there is none of this name, 340 when the array has no such element. The
    // library asks anew for every statement and never keeps the result.
    virtual ControlRef child(ChildId id) = 0;

    // Creates a further element of a control array (see FormData). Error 360 when it exists already.
    virtual void load(ChildId id) = 0;

    // Width in twips of a text in the font that the child has now.
    virtual float textWidth(ChildId id, std::string_view text) = 0;
};

} // namespace servopanel::platform

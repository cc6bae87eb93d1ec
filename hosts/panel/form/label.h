#pragma once

#include "panel/form/text_child.h"

namespace servopanel::panel {

// Plain text label, class Label. With AutoSize it is always as large as its text; what is seen of it stays within its
// container.
class Label : public TextChild {
public:
    Label(QWidget* parent, Services& services);

private:
    void lookChanged() override;
    void placed() override;
    void fit();

    std::string caption_;
    bool autoSize_ = false;
    bool wordWrap_ = false;
};

} // namespace servopanel::panel

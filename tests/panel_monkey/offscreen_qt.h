#pragma once

#include "panel/look/fonts.h"

#include <QApplication>
#include <QStyleFactory>

#include <optional>

namespace servopanel::monkey {

// Qt without a monitor, for as long as one piece of work takes.
class OffscreenQt {
public:
    OffscreenQt()
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application_.emplace(count_, arguments_);
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
        QApplication::setFont(panel::panelFont(14));
    }

private:
    int count_ = 1;
    char name_[13] = "panel-monkey";
    char* arguments_[2] = {name_, nullptr};
    std::optional<QApplication> application_;
};

} // namespace servopanel::monkey

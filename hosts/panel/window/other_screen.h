#pragma once

#include "panel/widgets/touch_key.h"

#include <QWidget>

namespace servopanel::panel {

// Stands for a screen of the HMI project that this panel does not bring: its title and a key that leads back.
class OtherScreen : public QWidget {
public:
    OtherScreen(QWidget* stage, const QString& title, const QString& number, const QString& back);

    TouchKey& backKey() { return *back_; }
    const QString& title() const { return title_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString title_;
    QString number_;
    TouchKey* back_;
};

} // namespace servopanel::panel

#pragma once

#include "panel/look/panel_text.h"
#include "panel/widgets/key_pad.h"
#include "panel/widgets/sheet.h"

#include <QLabel>

namespace servopanel::panel {

// What the mask shows and checks while it is open.
struct MaskTask {
    QString title; // caption of the field, may be empty
    QString unit;
    double value = 0;
    std::optional<double> lower;
    std::optional<double> upper;
};

// The number pad that opens over the page. It says why it refuses a value and stays open then.
class InputMask : public Sheet {
public:
    InputMask(QWidget* parent, PanelWords words);

    // accepted: the value and whether it differs from the one at the start.
    void setHandlers(
        std::function<void(double value, bool changed)> accepted, std::function<void()> cancelled);
    void start(const MaskTask& task);

    void accept();
    void cancel();
    KeyPad& pad() { return *pad_; }
    TouchKey& okKey() { return *ok_; }
    TouchKey& cancelKey() { return *cancel_; }
    // What stands in the display, and below it.
    QString shown() const { return value_->text(); }
    QString remark() const { return remark_->text(); }
    bool refusing() const { return refusing_; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void tell(NumberEntry::Verdict verdict);
    void changed();
    void layOut();

    PanelWords words_;
    NumberEntry entry_;
    QString unit_;
    QLabel* value_;
    QLabel* remark_;
    KeyPad* pad_;
    TouchKey* cancel_;
    TouchKey* ok_;
    std::function<void(double, bool)> accepted_;
    std::function<void()> cancelled_;
    bool refusing_ = false;
};

} // namespace servopanel::panel

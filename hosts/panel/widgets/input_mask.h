#pragma once

#include "panel/look/panel_text.h"
#include "panel/look/value_state.h"
#include "panel/widgets/key_pad.h"
#include "panel/widgets/sheet.h"

namespace servopanel::panel {

// What a number must keep; a limit that is missing does not limit.
struct MaskLimits {
    std::optional<double> lower;
    std::optional<double> upper;
    // How far they are those of the machine. With unknown ones nothing is accepted: the numbers at hand are those of
    // something else, and nobody may enter a value without bounds.
    ValueState state = ValueState::Fresh;
    friend bool operator==(const MaskLimits&, const MaskLimits&) = default;
};

// What the mask shows and checks while it is open.
struct MaskTask {
    QString title; // caption of the field, may be empty
    QString unit;
    std::string number = "0"; // as the page shows it; empty: it is not known
    MaskLimits limits;
    bool isWhole = false; // what takes the number holds whole numbers only
    bool isOld = false; // the number is the last one known, the machine may hold another by now
};

// The number pad that opens over the page. It always shows the limits and the unit; when it refuses a value it stays
// open and says why until the next key.
class InputMask : public Sheet {
public:
    InputMask(QWidget* parent, PanelWords words);

    // accepted: the value and whether it differs from the one at the start. An old number at the start may not be the
    // machine's: whatever is entered then is a change.
    void setHandlers(
        std::function<void(double value, bool changed)> accepted, std::function<void()> cancelled);
    void start(const MaskTask& task);
    // Shows its words anew, after the language has changed; caption and unit of the field are brought by setField.
    void languageChanged();
    void setField(const QString& caption, const QString& unit);
    // The machine may set other limits while the mask is open; what is typed stays.
    void setLimits(const MaskLimits& limits);

    // Whether the number keeps the limits. If not, it says so until the next key.
    bool check();
    void accept();
    void cancel();
    KeyPad& pad() { return *pad_; }
    TouchKey& okKey() { return *ok_; }
    TouchKey& cancelKey() { return *cancel_; }
    // What stands in the display with its unit, the limits below it, and why a value was refused or that it is old.
    QString shown() const;
    QString limits() const;
    bool limitsAreDoubtful() const { return limits_.state != ValueState::Fresh; }
    QString remark() const;
    // Whether it still shows an old number.
    bool showsOld() const { return isOld_ && !entry_.isEntered() && entry_.text() == first_; }
    bool refusing() const { return verdict_ != NumberEntry::Verdict::Fine; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool isBounded() const { return limits_.state != ValueState::Unknown; }
    void applyLimits();
    void tell(NumberEntry::Verdict verdict);
    void layOut();
    void paintValue(QPainter& painter) const;
    void paintRemark(QPainter& painter, int pixels) const;

    PanelWords words_;
    NumberEntry entry_;
    std::string first_; // the number at the start
    bool isOld_ = false;
    QString unit_;
    QRect valuePlace_;
    QRect limitsPlace_;
    QRect remarkPlace_;
    KeyPad* pad_;
    TouchKey* cancel_;
    TouchKey* ok_;
    MaskLimits limits_;
    std::function<void(double, bool)> accepted_;
    std::function<void()> cancelled_;
    NumberEntry::Verdict verdict_ = NumberEntry::Verdict::Fine;
};

} // namespace servopanel::panel

#pragma once

#include "panel/form/child.h"
#include "panel/widgets/text_view.h"

namespace servopanel::panel {

// What all controls that show a text have in common: alignment, background style, frame, and the touch on them.
class TextChild : public Child {
public:
    TextChild(std::string className, TextView& view, Services& services);

    // Where the control stands, pixels of its container, and the view that shows its text there.
    const QRect& given() const { return given_; }
    TextView& shownText() { return text(); }
    const TextView& shownText() const { return static_cast<const TextView&>(view()); }
    // Makes the view as high as its letters need it.
    void giveRoom();

    void setValueState(ValueState state) override;
    ValueState valueState() const override;

protected:
    TextView& text() { return static_cast<TextView&>(view()); }
    // Sets font, colours and alignment of the view anew.
    void applyLook();
    virtual void lookChanged() { }
    void fontChanged() override { applyLook(); }
    void placed() override;
    // Shows a text. Its view becomes higher than the control where letters of a script need it.
    void showText(const QString& shown);
    void enabledChanged() override;
    void showState();
    bool isLockedByLevel() const;
    virtual void textChanged() { giveRoom(); } // what is read is longer or shorter than before

    std::int32_t ink_ = 0; // 0xBBGGRR
    std::int32_t ground_ = 0xC0C0C0;
    std::int16_t backStyle_ = 1; // 0: the background shows through
    std::int16_t borderStyle_ = 0; // 1: a frame around the text
    std::int16_t alignment_ = 0; // 0 left, 1 right, 2 centred; 3 to 5 the same mirrored
    bool growsDown_ = false; // its view keeps its upper edge
    QRect given_; // pixels of the control, whatever the view takes
    ValueState state_ = ValueState::Fresh;
    bool wasChanged_ = false;
    bool isGivenUp_ =
        false; // it holds what the operator entered and gave up, while the machine could not be asked
    Qt::Alignment fixedSide_; // AlignAbsolute: left stays left on a panel from right to left
};

// Makes a touch view report to the library: MouseDown, MouseMove and MouseUp with button, shift and place in twips.
std::function<void(const TouchPoint&)> touchEvents(
    std::function<void(std::string_view event, std::initializer_list<basic::Variant> args)> raise);

} // namespace servopanel::panel

#pragma once

#include "panel/look/text_fit.h"
#include "panel/look/value_state.h"
#include "panel/widgets/touch_view.h"
#include "panel/widgets/value_marks.h"

#include <QColor>
#include <QFont>
#include <QPen>
#include <QString>

#include <optional>

namespace servopanel::panel {

// A text on the screen: caption, value or input field. A text that does not fit is made smaller, and what still does not
// fit is replaced by "…".
class TextView : public TouchView {
public:
    enum class Frame {
        None, // text only, the background shows through
        Value, // a value that is only shown
        Field, // a value that can be touched to change it
    };

    using TouchView::TouchView;

    void setText(const QString& text);
    const QString& text() const { return text_; }
    // What is read: the text, or "–".
    const QString& shownText() const;
    // Left and right change places on a panel from right to left, unless the alignment is absolute.
    void setLook(const QFont& font, const QColor& ink, Qt::Alignment alignment);
    void setFrame(Frame frame);
    // Nothing: the frame's own face, or none.
    void setBackground(std::optional<QColor> background);
    void setWrapping(bool wrapping);
    // Marks a field whose value waits to be written.
    void setChanged(bool changed);
    // Shows that the access level forbids to change it, beside what setLocked does.
    void setLockShown(bool shown);
    // Shows that the value is only the last known one; the digits keep their size and place. Of one that is not known "–"
    // is shown instead of the text. An empty text without a frame is nothing that could be old.
    void setState(ValueState state);
    bool isUnknown() const { return state_ == ValueState::Unknown; }
    ValueMarks marks() const { return {changed_, lockShown_, isStale()}; }
    // Marks the field that the input mask is working on.
    void setBeingEdited(bool edited);
    bool isBeingEdited() const { return edited_; }

    // Pixels that what is read takes with this font, without frame.
    QSize textSize() const;
    // Pixels that the view must be high at least, so that no letter loses its upper or lower end. A frame keeps its height.
    int inkHeight() const;
    // Height of the letters as they are shown, and where the ink of one line begins and ends; pixels of the view.
    int shownPixels() const { return fit().font.pixelSize(); }
    int inkTop() const;
    int inkBottom() const;
    // Letters are not larger than this, even if that is smaller than what is read well; 0: no limit.
    void setMostPixels(int pixels);
    // Whether a part of the text had to be left out, in the size that the view has now.
    bool isElided() const { return fit().elided; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool isStale() const;
    QRect inside() const; // where the text may stand
    QRect withinFrame() const; // neither the frame nor its corners
    bool standsWithinFrame() const;
    int overhang() const;
    QRect ink() const; // around the glyphs of a text of one line, the base line at 0
    const TextFit& fit() const;
    QColor face() const;
    QPen border() const;
    QColor shownInk() const;

    QString text_;
    QFont font_;
    QColor ink_;
    Qt::Alignment alignment_ = Qt::AlignLeft | Qt::AlignVCenter;
    std::optional<QColor> background_;
    Frame frame_ = Frame::None;
    bool wrapping_ = false;
    bool edited_ = false;
    bool changed_ = false;
    bool lockShown_ = false;
    ValueState state_ = ValueState::Fresh;
    int mostPixels_ = 0;

    // What the text was last fitted for; a value is painted more often than it changes.
    mutable TextFit fit_;
    mutable QString fittedText_;
    mutable QFont fittedFont_;
    mutable QSize fittedSize_;
    mutable bool fittedWrapping_ = false;
    mutable bool fittedDigits_ = false;
    // And how wide it would like to be.
    mutable QSize size_;
    mutable QString sizedText_;
    mutable QFont sizedFont_;
    mutable bool sizedDigits_ = false;
};

} // namespace servopanel::panel

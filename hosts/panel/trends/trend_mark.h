#pragma once

#include "panel/widgets/text_view.h"

namespace servopanel::panel {

// A small curve at the beginning of a value's field: a touch shows its trend. It lies on the field as a widget of its
// own, so that the field stays what its owner made of it, and gives way where the text needs the room.
class TrendMark : public QWidget {
public:
    explicit TrendMark(TextView& field);
    void setOn(bool on);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void place();

    TextView& field_;
    bool on_ = false;
};

} // namespace servopanel::panel

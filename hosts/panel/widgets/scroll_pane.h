#pragma once

#include "panel/look/colours.h"
#include "panel/widgets/scroll_view.h"

#include <QWidget>

#include <functional>

namespace servopanel::panel {

// A view on something that may be taller than itself: it is dragged by a finger or moved by the scroll bar, which is
// there only where more than fits, at the side where a line ends.
class ScrollPane : public QWidget {
public:
    explicit ScrollPane(QWidget* parent);

    // What is shown: its height at a width, and its drawing into a place of that size, all in pixels.
    void setContent(
        std::function<int(int width)> height, std::function<void(QPainter&, const QRect& place)> paint);
    // It has become another; the place where it is looked at stays as far as there is one.
    void contentChanged();
    void toTop();

    ScrollView& bar() { return *bar_; }
    int offset() const { return offset_; } // pixels above the view
    void setFace(const QColor& face); // what it is drawn on; white without

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int barWidth() const;
    QRect seen() const;
    void moveTo(int offset);

    std::function<int(int)> height_;
    std::function<void(QPainter&, const QRect&)> paint_;
    ScrollView* bar_;
    int whole_ = 0;
    int offset_ = 0;
    QColor face_ = colours::field;
    int grip_ = -1; // height at which the finger holds the content; -1: it does not
};

} // namespace servopanel::panel

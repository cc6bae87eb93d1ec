#pragma once

#include <QWidget>

#include <functional>
#include <optional>

class QGraphicsProxyWidget;
class QGraphicsView;

namespace servopanel::panel {

// Where the screens of a panel stand: as large as the panel's design, whatever the monitor is.
class Stage : public QWidget {
public:
    Stage(QWidget* window, QSize size);
    void setKeyHandler(std::function<void(QKeyEvent&)> handler) { keys_ = std::move(handler); }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::function<void(QKeyEvent&)> keys_;
};

// The panel's window: the stage in its middle, pixel by pixel or, zoomed, as large as the window allows, and on the
// stage one screen at a time.
class PanelWindow : public QWidget {
public:
    enum class Zoom { None, ToWindow };

    PanelWindow(QSize stage, Zoom zoom);
    ~PanelWindow() override;

    QWidget& stage() { return *stage_; }
    // Shows a part of the stage only, in its pixels; for a zoomed window.
    void setArea(const QRect& area);
    // The diagonal of the screen, inches. Where the window fills the screen the stage is as large as the part of it that it
    // takes; a window on a desk says nothing of the screen, and the stage counts as all of it.
    void setScreenDiagonal(double inches);
    // The size of the stage under a finger was stated, perhaps anew.
    void setSizedHandler(std::function<void()> handler) { sized_ = std::move(handler); }
    // A place on a widget of the stage, in pixels of the window.
    QPoint toWindow(const QWidget& target, QPoint at) const;

    // The screen's widget belongs to the stage; the window hides what was shown before. A screen that was made for
    // the window alone is deleted when the next one comes.
    void showScreen(QWidget& screen);
    void showNothing();

    // Keys F1 to F12 as 1 to 12, Esc as 11, Menu as 31.
    void setKeyHandler(std::function<void(int number)> handler) { keys_ = std::move(handler); }
    // The operator wants to close the window.
    void setCloseHandler(std::function<void()> handler) { close_ = std::move(handler); }
    void closeNow();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void zoomIn();
    void arrange();
    void stateSize();
    double shareOfScreen() const;

    Stage* stage_;
    QGraphicsView* view_ = nullptr; // only when zoomed
    QGraphicsProxyWidget* proxy_ = nullptr;
    QWidget* screen_ = nullptr;
    std::optional<double> screenInches_;
    std::function<void(int)> keys_;
    std::function<void()> close_;
    std::function<void()> sized_;
    bool closing_ = false;
};

} // namespace servopanel::panel

#pragma once

#include <QWidget>

#include <functional>

namespace servopanel::panel {

// The panel's window: a stage of the panel's own size in the middle, and on it one screen at a time.
class PanelWindow : public QWidget {
public:
    explicit PanelWindow(QSize stage);

    QWidget& stage() { return *stage_; }

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

private:
    QWidget* stage_;
    QWidget* screen_ = nullptr;
    std::function<void(int)> keys_;
    std::function<void()> close_;
    bool closing_ = false;
};

} // namespace servopanel::panel

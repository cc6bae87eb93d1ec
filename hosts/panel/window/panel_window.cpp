#include "panel/window/panel_window.h"

#include "panel/look/colours.h"
#include "panel/window/other_screen.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>

namespace servopanel::panel {

PanelWindow::PanelWindow(QSize stage)
    : stage_{new QWidget{this}}
{
    stage_->setFixedSize(stage);
    QPalette palette;
    palette.setColor(QPalette::Window, colours::background);
    stage_->setPalette(palette);
    stage_->setAutoFillBackground(true);
    setMinimumSize(stage);
    resize(stage);
    setFocusPolicy(Qt::StrongFocus);
}

void PanelWindow::showScreen(QWidget& screen)
{
    showNothing();
    screen_ = &screen;
    screen.lower();
    screen.show();
}

void PanelWindow::showNothing()
{
    if (screen_ == nullptr) return;
    screen_->hide();
    if (dynamic_cast<OtherScreen*>(screen_) != nullptr) screen_->deleteLater();
    screen_ = nullptr;
}

void PanelWindow::closeNow()
{
    closing_ = true;
    close();
}

void PanelWindow::paintEvent(QPaintEvent*) { QPainter{this}.fillRect(rect(), QColor{0x10, 0x16, 0x1C}); }

void PanelWindow::resizeEvent(QResizeEvent*)
{
    stage_->move(
        std::max(0, (width() - stage_->width()) / 2), std::max(0, (height() - stage_->height()) / 2));
}

void PanelWindow::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    if (event->isAutoRepeat() || !keys_) return;
    if (event->key() >= Qt::Key_F1 && event->key() <= Qt::Key_F12)
        keys_(event->key() - Qt::Key_F1 + 1);
    else if (event->key() == Qt::Key_Escape)
        keys_(11);
    else if (event->key() == Qt::Key_Menu)
        keys_(31);
}

void PanelWindow::closeEvent(QCloseEvent* event)
{
    if (closing_ || !close_) return;
    // A procedure of the library may be at work; its screen ends first.
    event->ignore();
    close_();
}

} // namespace servopanel::panel

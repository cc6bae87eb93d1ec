#include "panel/window/panel_window.h"

#include "panel/look/colours.h"
#include "panel/window/other_screen.h"

#include <QCloseEvent>
#include <QGraphicsProxyWidget>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QKeyEvent>
#include <QPainter>

namespace servopanel::panel {

namespace {
constexpr QColor surround{0x10, 0x16, 0x1C}; // around a stage that does not fill the window

// Shows all of the stage, as large as fits.
class ZoomView : public QGraphicsView {
public:
    using QGraphicsView::QGraphicsView;

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QGraphicsView::resizeEvent(event);
        fitInView(sceneRect(), Qt::KeepAspectRatio);
    }
};

} // namespace

Stage::Stage(QWidget* window, QSize size)
    : QWidget{window}
{
    setFixedSize(size);
    QPalette palette;
    palette.setColor(QPalette::Window, colours::background);
    setPalette(palette);
    setAutoFillBackground(true);
}

void Stage::keyPressEvent(QKeyEvent* event)
{
    if (keys_) keys_(*event);
}

PanelWindow::PanelWindow(QSize stage, Zoom zoom)
    : stage_{new Stage{zoom == Zoom::None ? this : nullptr, stage}}
{
    stage_->setKeyHandler([this](QKeyEvent& event) { keyPressEvent(&event); });
    resize(stage);
    setFocusPolicy(Qt::StrongFocus);
    if (zoom == Zoom::ToWindow)
        zoomIn();
    else
        setMinimumSize(stage);
}

PanelWindow::~PanelWindow() = default;

void PanelWindow::zoomIn()
{
    auto* scene = new QGraphicsScene{this};
    proxy_ = scene->addWidget(stage_);
    scene->setSceneRect(QRectF{stage_->rect()});
    view_ = new ZoomView{scene, this};
    view_->setFrameShape(QFrame::NoFrame);
    view_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view_->setBackgroundBrush(surround);
    view_->setRenderHints(
        QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
}

QPoint PanelWindow::toWindow(const QWidget& target, QPoint at) const
{
    if (view_ == nullptr || &target == this) return target.mapTo(this, at);
    const QPoint onStage = target.mapTo(stage_, at);
    return view_->mapTo(this, view_->mapFromScene(proxy_->mapToScene(onStage)));
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

void PanelWindow::paintEvent(QPaintEvent*) { QPainter{this}.fillRect(rect(), surround); }

void PanelWindow::resizeEvent(QResizeEvent*)
{
    if (view_ != nullptr) {
        view_->setGeometry(rect());
        return;
    }
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

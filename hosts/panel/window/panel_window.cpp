#include "panel/window/panel_window.h"

#include "panel/look/colours.h"
#include "panel/look/touch_size.h"
#include "panel/window/other_screen.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGraphicsProxyWidget>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QWheelEvent>

#include <cmath>

namespace servopanel::panel {

namespace {
constexpr QColor surround{0x10, 0x16, 0x1C}; // around a stage that does not fill the window

// Shows all of the stage over all of itself. Texts and lines are drawn at the size they have here, pictures smoothed.
class ZoomView : public QGraphicsView {
public:
    ZoomView(QGraphicsScene* scene, QWidget* parent)
        : QGraphicsView{scene, parent}
    {
        setFrameShape(QFrame::NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setAlignment(Qt::AlignLeft | Qt::AlignTop);
        setRenderHint(QPainter::SmoothPixmapTransform);
    }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QGraphicsView::resizeEvent(event);
        const QSizeF scene = sceneRect().size();
        const QTransform zoom = QTransform::fromScale(width() / scene.width(), height() / scene.height());
        setTransform(zoom);
        // Lines that fall between pixels need it; lines that do not would only be blurred.
        setRenderHint(QPainter::Antialiasing, !zoom.isIdentity());
    }
    // There is nothing to scroll to.
    void wheelEvent(QWheelEvent* event) override { event->accept(); }
};

void pressKey(QKeyEvent& event, const std::function<void(int)>& keys)
{
    event.accept();
    if (event.isAutoRepeat() || !keys) return;
    if (event.key() >= Qt::Key_F1 && event.key() <= Qt::Key_F12)
        keys(event.key() - Qt::Key_F1 + 1);
    else if (event.key() == Qt::Key_Escape)
        keys(11);
    else if (event.key() == Qt::Key_Menu)
        keys(31);
}

// What waits for keys on the stage: a message, which lies on everything, or what a page has opened. nullptr: nothing.
QWidget* dialogueOn(const QWidget& stage)
{
    QWidget* found = nullptr;
    for (QWidget* each : stage.findChildren<QWidget*>()) {
        if (each->focusPolicy() != Qt::StrongFocus || !each->isVisible()) continue;
        if (each->parentWidget() == &stage) return each;
        found = each;
    }
    return found;
}

// The keyboard's focus is lost when what had it is hidden, and on a zoomed stage no widget has it.
void handOver(QKeyEvent& event, const QWidget& stage, const std::function<void(int)>& keys)
{
    static const QKeyEvent* handedOver = nullptr; // it comes back when the dialogue has no use for it
    QWidget* const dialogue = &event == handedOver ? nullptr : dialogueOn(stage);
    if (dialogue == nullptr) {
        pressKey(event, keys);
        return;
    }
    handedOver = &event;
    QCoreApplication::sendEvent(dialogue, &event);
    handedOver = nullptr;
    event.accept();
}

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
    // Marks the stage, too: what stands on it finds it by that.
    stateDiagonal(*stage_, usualDiagonal(stage.width()));
    stage_->setKeyHandler([this](QKeyEvent& event) { handOver(event, *stage_, keys_); });
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
}

void PanelWindow::setArea(const QRect& area)
{
    if (view_ == nullptr || view_->sceneRect() == QRectF{area}) return;
    view_->scene()->setSceneRect(area);
    arrange();
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

void PanelWindow::resizeEvent(QResizeEvent*) { arrange(); }

void PanelWindow::arrange()
{
    QWidget& shown = view_ != nullptr ? static_cast<QWidget&>(*view_) : *stage_;
    // In whole pixels, so that a stage at its own size is shown as it is.
    if (view_ != nullptr)
        view_->resize(view_->sceneRect().size().toSize().scaled(size(), Qt::KeepAspectRatio));
    shown.move(std::max(0, (width() - shown.width()) / 2), std::max(0, (height() - shown.height()) / 2));
    stateSize();
}

void PanelWindow::setScreenDiagonal(double inches)
{
    screenInches_ = inches;
    stateSize();
}

void PanelWindow::stateSize()
{
    if (!screenInches_) return;
    stateDiagonal(*stage_, *screenInches_ * shareOfScreen());
    if (sized_) sized_();
}

// The stage's diagonal as it is shown, of that of the screen.
double PanelWindow::shareOfScreen() const
{
    const bool fillsScreen =
        isFullScreen() || (isWindow() && screen() != nullptr && size() == screen()->size());
    if (!fillsScreen) return 1;
    const double zoom = view_ == nullptr ? 1 : view_->width() / view_->sceneRect().width();
    return zoom * std::hypot(stage_->width(), stage_->height()) / std::hypot(width(), height());
}

void PanelWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) arrange();
}

void PanelWindow::keyPressEvent(QKeyEvent* event) { handOver(*event, *stage_, keys_); }

void PanelWindow::closeEvent(QCloseEvent* event)
{
    if (closing_ || !close_) return;
    // A procedure of the library may be at work; its screen ends first.
    event->ignore();
    close_();
}

} // namespace servopanel::panel

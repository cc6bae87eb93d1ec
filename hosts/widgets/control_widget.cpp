#include "widgets/control_widget.h"

#include "basic/error.h"
#include "panel/look/colours.h"
#include "panel/look/fonts.h"
#include "panel/runtime/panel.h"

#include <QPainter>
#include <QStyleFactory>
#include <QTimer>

#include <utility>

namespace servopanel {

namespace {
constexpr QSize design{1280, 1024};
constexpr int basicFontPixels = 14;
} // namespace

ControlWidget::ControlWidget(QWidget* parent)
    : QWidget{parent}
{
    setFocusPolicy(Qt::StrongFocus);
}

ControlWidget::~ControlWidget() = default;

void ControlWidget::setProject(const QString& folder)
{
    if (folder == project_) return;
    project_ = folder;
    restart();
}

void ControlWidget::setResolution(int width)
{
    if (width == resolution_) return;
    resolution_ = width;
    restart();
}

QString ControlWidget::language() const { return panel_ ? QString::number(panel_->language()) : language_; }

void ControlWidget::setLanguage(const QString& numberOrCode)
{
    language_ = numberOrCode;
    if (!panel_) return;
    for (const machine::ProjectFile::Language& each : panel_->project().languages)
        if (QString::number(each.number) == numberOrCode || QString::fromStdString(each.code) == numberOrCode)
            panel_->chooseLanguage(each.number);
}

void ControlWidget::setAccessLevel(int level)
{
    if (level == accessLevel_) return;
    accessLevel_ = level;
    restart();
}

void ControlWidget::setVariables(Variables variables)
{
    variables_ = std::move(variables);
    restart();
}

QSize ControlWidget::sizeHint() const { return design; }

void ControlWidget::opened(panel::ControlHost&) { }

void ControlWidget::prepare(panel::Panel&) { }

QRect ControlWidget::area(panel::ControlHost&, const QRect& whole) const { return whole; }

// Several properties are set one after the other; the control starts once.
void ControlWidget::restart()
{
    panel_.reset();
    problem_.clear();
    update();
    if (isVisible()) QTimer::singleShot(0, this, [this] { start(); });
}

void ControlWidget::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    start();
}

// A form editor shows where the control will stand; a machine is none of its business.
bool ControlWidget::isDrawnOnly() const { return property("drawnOnly").toBool(); }

void ControlWidget::start()
{
    if (isDrawnOnly()) return;
    if (panel_) {
        if (std::exchange(hasLeft_, false)) open();
        return;
    }
    if (project_.isEmpty()) {
        problem_ = tr("No project is set");
        return;
    }
    panel::PanelSettings settings;
    settings.project = project_.toStdString();
    if (resolution_ != 0) settings.resolution = resolution_;
    if (accessLevel_ >= 0) settings.level = static_cast<std::int16_t>(accessLevel_);
    settings.language = language_.toStdString();
    settings.wrapVariables = variables_;
    settings.zoom = panel::PanelWindow::Zoom::ToWindow;
    settings.outside.reported = [this](const panel::ErrorEntry& report) { emit reported(report.text); };
    settings.outside.openScreen = [this](std::int16_t number) {
        hasLeft_ = true;
        emit screenWanted(number);
        // Nobody shows another screen: the control comes back.
        if (isVisible()) QTimer::singleShot(0, this, [this] { start(); });
    };
    settings.outside.servoOpened = [this](panel::ControlHost& servo) {
        panel_->window().setArea(area(servo, panel_->window().stage().rect()));
        opened(servo);
    };
    try {
        panel_ = std::make_unique<panel::Panel>(settings);
    } catch (const panel::CannotStart& failure) {
        problem_ = QString::fromStdString(failure.reason);
    } catch (const basic::Error& error) {
        problem_ = QString::fromStdString(error.description);
    }
    if (!panel_) {
        emit reported(problem_);
        update();
        return;
    }
    // The panel looks the same in every program.
    panel::PanelWindow& window = panel_->window();
    window.setParent(this);
    window.setFont(panel::panelFont(basicFontPixels));
    window.setGeometry(rect());
    setFocusProxy(&window);
    window.show();
    open();
}

void ControlWidget::open()
{
    prepare(*panel_);
    panel_->openServo();
}

void ControlWidget::resizeEvent(QResizeEvent*)
{
    if (panel_) panel_->window().setGeometry(rect());
}

void ControlWidget::paintEvent(QPaintEvent*)
{
    QPainter painter{this};
    painter.fillRect(rect(), panel::colours::background);
    const QString name = QString::fromLatin1(metaObject()->className()).section(QStringLiteral("::"), -1);
    QString text = name + u'\n' + project_;
    if (!problem_.isEmpty()) text += u'\n' + problem_;
    painter.setPen(panel::colours::ink);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, text);
}

} // namespace servopanel

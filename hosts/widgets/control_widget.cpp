#include "widgets/control_widget.h"

#include "basic/error.h"
#include "machine/access_level.h"
#include "machine/screen_rows.h"
#include "panel/look/colours.h"
#include "panel/look/fonts.h"
#include "panel/runtime/panel.h"
#include "widgets/orphaned_panel.h"

#include <QPainter>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace servopanel {

namespace {
constexpr QSize design{1280, 1024};
constexpr int basicFontPixels = 14;
constexpr int retryMilliseconds = 50;
} // namespace

ControlWidget::ControlWidget(QWidget* parent)
    : QWidget{parent}
{
    setFocusPolicy(Qt::StrongFocus);
    renewal_.setSingleShot(true);
    QObject::connect(&renewal_, &QTimer::timeout, this, [this] { renew(); });
}

ControlWidget::~ControlWidget()
{
    // Below us on the stack is a procedure of the panel that comes back to it.
    if (panel_ && !panel_->isFree()) new OrphanedPanel{std::move(panel_)};
}

void ControlWidget::setProject(const QString& folder)
{
    if (folder == project_) return;
    project_ = folder;
    restart();
}

void ControlWidget::setResolution(int width)
{
    if (width == resolution_) return;
    if (width != 0 && !machine::isResolution(width)) {
        report(tr("The resolution is 800, 1024, 1280 or 0 for the project's own, not %1").arg(width));
        return;
    }
    resolution_ = width;
    restart();
}

QString ControlWidget::language() const { return panel_ ? QString::number(panel_->language()) : language_; }

void ControlWidget::setLanguage(const QString& numberOrCode)
{
    if (!panel_ || isStale_) {
        language_ = numberOrCode;
        restart();
        return;
    }
    const auto& all = panel_->project().languages;
    const auto found = std::find_if(all.begin(), all.end(), [&](const machine::ProjectFile::Language& each) {
        return QString::number(each.number) == numberOrCode
            || QString::fromStdString(each.code) == numberOrCode;
    });
    if (found == all.end()) {
        if (!numberOrCode.isEmpty()) report(tr("The project has no language '%1'").arg(numberOrCode));
        return;
    }
    language_ = numberOrCode;
    if (panel_->isFree()) {
        panel_->chooseLanguage(found->number);
        return;
    }
    const QPointer<ControlWidget> self{this};
    panel_->gate().later([self, number = found->number] {
        if (self && self->panel_) self->panel_->chooseLanguage(number);
    });
}

void ControlWidget::setAccessLevel(int level)
{
    if (level == accessLevel_) return;
    if (level < -1 || level > machine::highestAccessLevel) {
        report(tr("The access level is 0 to 5, or -1 for the project's own, not %1").arg(level));
        return;
    }
    accessLevel_ = level;
    if (panel_) panel_->setLevel(level < 0 ? panel_->project().level : static_cast<std::int16_t>(level));
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
    isStale_ = panel_ != nullptr;
    problem_.clear();
    update();
    if (isStale_ || isVisible()) renewal_.start(0);
}

// Whoever asks for it may be called by the panel itself, or while a message waits for its reader.
void ControlWidget::renew()
{
    if (isStale_) {
        if (!panel_->isFree()) {
            renewal_.start(retryMilliseconds);
            return;
        }
        isStale_ = false;
        hasLeft_ = false;
        panel_.reset();
    }
    if (isVisible()) start();
}

void ControlWidget::later(const std::function<void()>& action)
{
    QMetaObject::invokeMethod(this, action, Qt::QueuedConnection);
}

void ControlWidget::report(const QString& text)
{
    later([this, text] { emit reported(text); });
}

void ControlWidget::leave(int number)
{
    hasLeft_ = true;
    later([this, number] {
        const QPointer<ControlWidget> self{this};
        emit screenWanted(number);
        // Nobody shows another screen: the control comes back.
        if (self && self->isVisible()) self->start();
    });
}

void ControlWidget::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // The first screen may have a message that waits for its reader; whoever shows us shall not wait with it.
    renewal_.start(0);
}

// A form editor shows where the control will stand; a machine is none of its business.
bool ControlWidget::isDrawnOnly() const { return property("drawnOnly").toBool(); }

void ControlWidget::start()
{
    if (isDrawnOnly() || isStale_) return;
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
    // The panel may outlive the widget.
    const QPointer<ControlWidget> self{this};
    settings.outside.reported = [self](const panel::ErrorEntry& report) {
        if (self) self->report(report.text);
    };
    settings.outside.openScreen = [self](std::int16_t number) {
        if (self) self->leave(number);
    };
    settings.outside.servoOpened = [self](panel::ControlHost& servo) {
        if (!self || !self->panel_) return;
        panel::PanelWindow& window = self->panel_->window();
        window.setArea(self->area(servo, window.stage().rect()));
        self->opened(servo);
    };
    try {
        panel_ = std::make_unique<panel::Panel>(settings);
    } catch (const panel::CannotStart& failure) {
        problem_ = QString::fromStdString(failure.reason);
    } catch (const basic::Error& error) {
        problem_ = QString::fromStdString(error.description);
    }
    if (!panel_) {
        report(problem_);
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
    // With all that a message of the first screen may bring about before it is read.
    const panel::EventGate::Entry entry{panel_->gate()};
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

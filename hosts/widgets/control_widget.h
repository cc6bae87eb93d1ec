#pragma once

#include "platform/process_var_access.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>

namespace servopanel {

namespace panel {
class ControlHost;
class Panel;
} // namespace panel

// What the three controls have in common as widgets: an HMI project, shown as large as the widget allows in the shape that
// the project was designed for. Whatever is wrong with the project is reported, and the rest is shown.
//
// The signals come from the event loop: a slot may do anything with the widget, delete it as well.
//
// A program shows its controls in one language at a time: the widget that chose last decides on fonts and digits of all.
class ControlWidget : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString project READ project WRITE setProject)
    Q_PROPERTY(int resolution READ resolution WRITE setResolution)
    Q_PROPERTY(QString language READ language WRITE setLanguage)
    Q_PROPERTY(int accessLevel READ accessLevel WRITE setAccessLevel)

public:
    ~ControlWidget() override;

    // Folder of the HMI project. With another one the control starts anew, from the event loop and as soon as its procedures
    // and messages have come to their end.
    QString project() const { return project_; }
    void setProject(const QString& folder);
    // Width in pixels of the design that is shown: 800, 1024 or 1280; 0 for the project's own. Others are
    // reported and change nothing.
    int resolution() const { return resolution_; }
    void setResolution(int width);
    // Number or code of a language of the project; empty for the project's own. While a project is shown, one that it does
    // not have is reported and changes nothing.
    QString language() const;
    void setLanguage(const QString& numberOrCode);
    // 0 operator to 5 service; -1 for the project's own. Others are reported and change nothing. Inputs stay.
    int accessLevel() const { return accessLevel_; }
    void setAccessLevel(int level);

    // Another way to the process variables than the ones that live in the widget, for all controls of a program alike:
    // it is given those and returns what the control shall use. Before the control is shown.
    using Variables = std::function<std::shared_ptr<platform::ProcessVarAccess>(
        std::shared_ptr<platform::ProcessVarAccess> own)>;
    void setVariables(Variables variables);

    // Why nothing is shown; empty when something is.
    QString problem() const { return problem_; }
    // Everything behind the widget; nullptr before it was shown, which takes a turn of the
    // event loop, and while nothing can be.
    panel::Panel* panel() { return panel_.get(); }

    QSize sizeHint() const override;

signals:
    // Something for whoever looks after the project: a missing picture, a variable that cannot be read.
    void reported(const QString& text);
    // A key that leads to another screen of the project was pressed. When the widget is shown again the control starts
    // anew, as on a panel.
    void screenWanted(int number);

protected:
    explicit ControlWidget(QWidget* parent);

    // The control has been made anew.
    virtual void opened(panel::ControlHost& servo);
    // The control is about to be made.
    virtual void prepare(panel::Panel& panel);
    // Part of the control that is shown, pixels of the design.
    virtual QRect area(panel::ControlHost& servo, const QRect& whole) const;

    void restart();
    // Does it from the event loop, unless the widget has gone by then.
    void later(const std::function<void()>& action);

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void renew();
    void start();
    void open();
    void report(const QString& text);
    void leave(int number);
    bool isDrawnOnly() const;

    QString project_;
    int resolution_ = 0;
    QString language_;
    int accessLevel_ = -1;
    Variables variables_;
    QString problem_;
    std::unique_ptr<panel::Panel> panel_;
    bool hasLeft_ = false;
    bool isStale_ = false; // the panel is taken down as soon as that can be
    QTimer renewal_;
};

} // namespace servopanel

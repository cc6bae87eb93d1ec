#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <functional>

namespace servopanel::panel {

// Says what becomes of a confirmed change, without stopping anybody: that it is being written; then written, for some
// seconds; refused, or written with something to know about it, until the first touch after these seconds. A sign of its
// own shape tells them apart. What does not fit ends in "…"; a touch on a refusal or a warning asks for all of it.
class AnswerStrip : public QWidget {
public:
    explicit AnswerStrip(QWidget* parent);

    // It is being written, until the next answer. On the screen when this returns: nothing is painted meanwhile.
    void showBusy(const QString& text);
    void showWritten(const QString& text);
    // Written, and reason is what the operator has to know about it.
    void showWarned(const QString& text, const QString& reason);
    void showRefused(const QString& text, const QString& reason);
    // Nothing was asked of the machine yet: reason is why an input cannot be changed. No report tells of it.
    void showLocked(const QString& text, const QString& reason);
    // A refusal or a warning was touched. isReported: the list of reports has it.
    void setAskedHandler(std::function<void(bool isReported)> asked) { asked_ = std::move(asked); }
    // The operator has touched something.
    void touched();
    // While something lies over its place it is not seen; afterwards it comes back if it still has something to say. The
    // time of a refusal or a warning begins anew then.
    void setCovered(bool covered);
    void dismiss();

    bool isRefusal() const { return kind_ == Kind::Refused || kind_ == Kind::Locked; }
    bool isBusy() const { return due_ && kind_ == Kind::Busy; }
    bool isWarning() const { return kind_ == Kind::Warned; }
    // Whether its time is not over, seen or covered.
    bool isDue() const { return due_; }
    // The same answer in other words; its time goes on.
    void retranslate(const QString& text, const QString& reason);
    QString text() const { return reason_.isEmpty() ? text_ : text_ + QStringLiteral(": ") + reason_; }

    // Whether it tells something of a confirm that nobody can have read yet.
    bool isFresh() const;
    // Milliseconds that it is shown at least.
    void setLeastTime(int milliseconds) { leastMs_ = milliseconds; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    enum class Kind { Busy, Written, Warned, Refused, Locked };
    void begin(Kind kind, const QString& text, const QString& reason);
    void adapt();
    bool waitsForTouch() const { return kind_ == Kind::Warned || isRefusal(); }

    std::function<void(bool)> asked_;
    QString text_;
    QString reason_;
    QTimer timer_;
    QElapsedTimer since_; // does not follow the wall clock
    int leastMs_ = 5000;
    Kind kind_ = Kind::Written;
    bool due_ = false;
    bool covered_ = false;
};

} // namespace servopanel::panel

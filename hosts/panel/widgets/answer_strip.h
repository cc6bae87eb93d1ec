#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QTimer>
#include <QWidget>

namespace servopanel::panel {

// Says what became of a confirmed change, without stopping anybody: written, for some seconds; refused, until the first
// touch after these seconds. A sign of its own shape tells the two apart.
class AnswerStrip : public QWidget {
public:
    explicit AnswerStrip(QWidget* parent);

    void showWritten(const QString& text);
    void showRefused(const QString& text, const QString& reason);
    // The operator has touched something.
    void touched();
    // While something lies over its place it is not seen; afterwards it comes back if it still has something to say.
    void setCovered(bool covered);
    void dismiss();

    bool isRefusal() const { return refused_; }
    // Whether its time is not over, seen or covered.
    bool isDue() const { return due_; }
    // The same answer in other words; its time goes on.
    void retranslate(const QString& text, const QString& reason);
    QString text() const { return reason_.isEmpty() ? text_ : text_ + QStringLiteral(": ") + reason_; }

    // Milliseconds that it is shown at least.
    void setLeastTime(int milliseconds) { leastMs_ = milliseconds; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void begin(bool refused, const QString& text, const QString& reason);
    void adapt();

    QString text_;
    QString reason_;
    QTimer timer_;
    QElapsedTimer since_; // does not follow the wall clock
    int leastMs_ = 5000;
    bool refused_ = false;
    bool due_ = false;
    bool covered_ = false;
};

} // namespace servopanel::panel

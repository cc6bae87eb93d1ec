#include "panel/widgets/answer_strip.h"

#include "panel/look/colours.h"
#include "panel/look/fonts.h"
#include "panel/look/mirroring.h"
#include "panel/look/text_fit.h"
#include "panel/widgets/value_marks.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>

namespace servopanel::panel {

AnswerStrip::AnswerStrip(QWidget* parent)
    : QWidget{parent}
{
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, [this] {
        if (kind_ == Kind::Written) dismiss();
    });
    hide();
}

void AnswerStrip::showBusy(const QString& text)
{
    begin(Kind::Busy, text, {});
    repaint();
}

void AnswerStrip::showWritten(const QString& text) { begin(Kind::Written, text, {}); }
void AnswerStrip::showWarned(const QString& text, const QString& reason)
{
    begin(Kind::Warned, text, reason);
}
void AnswerStrip::showRefused(const QString& text, const QString& reason)
{
    begin(Kind::Refused, text, reason);
}

void AnswerStrip::showLocked(const QString& text, const QString& reason)
{
    begin(Kind::Locked, text, reason);
}

void AnswerStrip::begin(Kind kind, const QString& text, const QString& reason)
{
    kind_ = kind;
    text_ = text;
    reason_ = reason;
    due_ = true;
    since_.start();
    timer_.start(leastMs_);
    adapt();
    update();
}

void AnswerStrip::retranslate(const QString& text, const QString& reason)
{
    text_ = text;
    reason_ = reason;
    update();
}

bool AnswerStrip::isFresh() const
{
    const bool isOfConfirm = kind_ == Kind::Warned || kind_ == Kind::Refused;
    return due_ && isOfConfirm && (covered_ || since_.elapsed() < leastMs_);
}

void AnswerStrip::touched()
{
    if (due_ && !covered_ && waitsForTouch() && since_.elapsed() >= leastMs_) dismiss();
}

void AnswerStrip::setCovered(bool covered)
{
    if (covered_ == covered) return;
    covered_ = covered;
    // What could not be read meanwhile is read from now on.
    if (!covered_ && due_ && waitsForTouch()) since_.start();
    adapt();
}

void AnswerStrip::dismiss()
{
    due_ = false;
    timer_.stop();
    adapt();
}

void AnswerStrip::adapt()
{
    setVisible(due_ && !covered_);
    if (isVisible()) raise();
}

void AnswerStrip::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) update();
}

void AnswerStrip::mousePressEvent(QMouseEvent* event) { event->accept(); }

void AnswerStrip::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (!due_ || !waitsForTouch() || !asked_ || !rect().contains(event->position().toPoint())) return;
    asked_(kind_ != Kind::Locked);
}

void AnswerStrip::paintEvent(QPaintEvent*)
{
    QPainter painter{this};
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor edge = isRefusal() ? colours::refuse
        : kind_ == Kind::Written    ? colours::accept
                                    : colours::ink;
    painter.setPen(QPen{edge, 2});
    painter.setBrush(kind_ == Kind::Warned ? mix(colours::warn, colours::sheet, 0.6) : colours::sheet);
    painter.drawRoundedRect(QRectF{rect()}.adjusted(1, 1, -1, -1), 4, 4);

    const int side = scaled(0.3, height(), 16, 28);
    const int margin = scaled(0.08, height(), 4, 8);
    const int top = reason_.isEmpty() ? (height() - side) / 2 : margin;
    const QRect sign{margin + 2, top, side, side};
    if (isRefusal())
        drawCross(painter, mirroredIn(*this, sign), edge);
    else if (kind_ == Kind::Warned)
        drawWarning(painter, mirroredIn(*this, sign), edge);
    else if (kind_ == Kind::Busy)
        drawDots(painter, mirroredIn(*this, sign), edge);
    else
        drawTick(painter, mirroredIn(*this, sign), edge);

    const QRect head{sign.right() + margin, top, width() - sign.right() - 2 * margin, side};
    painter.setPen(colours::ink);
    drawFitted(painter, mirroredIn(*this, head), static_cast<int>(leading(*this) | Qt::AlignVCenter),
        panelFont(scaled(0.18, height(), 12, 18), true), text_);
    if (reason_.isEmpty()) return;
    const QRect rest{
        margin + 2, head.bottom() + 2, width() - 2 * margin - 4, height() - head.bottom() - margin};
    // A long reason is made smaller before its end is lost; the list of reports has it as a whole.
    constexpr int leastPixels = 9;
    TextFit::wrapped(reason_, panelFont(scaled(0.17, height(), 11, 15)), rest.size(), leastPixels)
        .draw(painter, rest, leading(*this) | Qt::AlignTop);
}

} // namespace servopanel::panel

#include "panel/widgets/input_mask.h"

#include "basic/conversions.h"
#include "panel/look/colours.h"
#include "panel/look/fonts.h"

#include <QKeyEvent>

namespace servopanel::panel {

namespace {

constexpr int gap = 4; // pixels between keys

QString number(double value) { return QString::fromStdString(basic::decimal(value)); }

void colour(QLabel& label, const QColor& ink, const QColor& face)
{
    QPalette palette;
    palette.setColor(QPalette::WindowText, ink);
    palette.setColor(QPalette::Window, face);
    label.setPalette(palette);
    label.setAutoFillBackground(true);
}

} // namespace

InputMask::InputMask(QWidget* parent, PanelWords words)
    : Sheet{parent}
    , words_{std::move(words)}
    , value_{new QLabel{this}}
    , remark_{new QLabel{this}}
    , pad_{new KeyPad{this, [this] { changed(); }}}
    , cancel_{new TouchKey{this}}
    , ok_{new TouchKey{this}}
{
    value_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    value_->setFrameShape(QFrame::Box);
    remark_->setAlignment(Qt::AlignCenter);
    ok_->setRole(TouchKey::Role::Accept);
    ok_->setAction([this] { accept(); });
    cancel_->setRole(TouchKey::Role::Refuse);
    cancel_->setAction([this] { cancel(); });
    setFocusPolicy(Qt::StrongFocus);
}

void InputMask::setHandlers(std::function<void(double, bool)> accepted, std::function<void()> cancelled)
{
    accepted_ = std::move(accepted);
    cancelled_ = std::move(cancelled);
}

void InputMask::start(const MaskTask& task)
{
    setTitle(task.title);
    unit_ = task.unit;
    entry_.start(task.value, task.lower, task.upper);
    pad_->workOn(&entry_);
    ok_->setText(words_(PanelText::Ok));
    cancel_->setText(words_(PanelText::Cancel));
    changed();
    setFocus();
}

void InputMask::changed() { tell(NumberEntry::Verdict::Fine); }

void InputMask::tell(NumberEntry::Verdict verdict)
{
    const QString text = QString::fromStdString(entry_.text());
    value_->setText(unit_.isEmpty() ? text + u' ' : text + u' ' + unit_ + u' ');
    refusing_ = verdict != NumberEntry::Verdict::Fine;
    colour(*value_, refusing_ ? colours::refuse : colours::ink, colours::field);
    colour(*remark_, refusing_ ? colours::barInk : colours::faintInk,
        refusing_ ? colours::refuse : colours::sheet);
    QString remark;
    switch (verdict) {
    case NumberEntry::Verdict::Fine:
        if (entry_.lower()) remark = words_(PanelText::Lowest) + u' ' + number(*entry_.lower());
        if (entry_.lower() && entry_.upper()) remark += QStringLiteral("   …   ");
        if (entry_.upper()) remark += words_(PanelText::Highest) + u' ' + number(*entry_.upper());
        break;
    case NumberEntry::Verdict::NoNumber: remark = words_(PanelText::NoNumber); break;
    case NumberEntry::Verdict::TooSmall:
        remark = words_(PanelText::TooSmall) + u' ' + number(*entry_.lower());
        break;
    case NumberEntry::Verdict::TooLarge:
        remark = words_(PanelText::TooLarge) + u' ' + number(*entry_.upper());
        break;
    }
    remark_->setText(remark);
    remark_->setFont(
        fitted(panelFont(scaled(0.032, height(), 10, 15), refusing_), remark, remark_->width() - 4));
}

void InputMask::accept()
{
    const NumberEntry::Verdict verdict = entry_.verdict();
    if (verdict != NumberEntry::Verdict::Fine) {
        tell(verdict);
        return;
    }
    if (accepted_) accepted_(*entry_.value(), entry_.changed());
}

void InputMask::cancel()
{
    if (cancelled_) cancelled_();
}

void InputMask::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: accept(); break;
    case Qt::Key_Escape: cancel(); break;
    case Qt::Key_Backspace: pad_->pressBack(); break;
    default:
        if (!pad_->type(event->text())) event->ignore();
    }
}

void InputMask::resizeEvent(QResizeEvent*) { layOut(); }

void InputMask::layOut()
{
    const QRect place = inner();
    const int valueHeight = scaled(0.12, height(), 30, 58);
    const int remarkHeight = scaled(0.06, height(), 16, 28);
    value_->setGeometry(place.left(), place.top(), place.width(), valueHeight);
    value_->setFont(panelFont(scaled(0.55, valueHeight, 15, 30), true));
    remark_->setGeometry(place.left(), place.top() + valueHeight + 2, place.width(), remarkHeight);

    // The keys share the rest: four rows of the pad and one for the way out.
    const int top = remark_->geometry().bottom() + gap;
    const int rest = place.bottom() + 1 - top;
    const int row = (rest + gap) / (KeyPad::rows + 1);
    pad_->setGeometry(place.left(), top, place.width(), row * KeyPad::rows - gap);
    const int last = top + row * KeyPad::rows;
    const int half = (place.width() - gap) / 2;
    cancel_->setGeometry(place.left(), last, half, place.bottom() + 1 - last);
    for (TouchKey* key : {cancel_, ok_})
        key->setTextPixels(scaled(0.36, row, 11, 20));
    ok_->setGeometry(place.right() + 1 - half, last, half, place.bottom() + 1 - last);
}

} // namespace servopanel::panel

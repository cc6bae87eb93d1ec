#include "panel/widgets/input_mask.h"

#include "basic/conversions.h"
#include "panel/look/colours.h"
#include "panel/look/fonts.h"
#include "panel/look/mirroring.h"
#include "panel/look/reading_order.h"
#include "panel/widgets/value_marks.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>

namespace servopanel::panel {

namespace {

constexpr int gap = 4; // pixels between keys

// Written like the values of the page.
QString number(double value) { return QString::fromStdString(basic::decimal(value)); }

} // namespace

InputMask::InputMask(QWidget* parent, PanelWords words)
    : Sheet{parent}
    , words_{std::move(words)}
    , pad_{new KeyPad{this, [this](NumberEntry::Verdict verdict) { tell(verdict); }}}
    , cancel_{new TouchKey{this}}
    , ok_{new TouchKey{this}}
{
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
    setField(task.title, task.unit);
    first_ = task.number;
    isOld_ = task.isOld && !first_.empty();
    limits_ = task.limits;
    entry_.start(task.number);
    entry_.setWhole(task.isWhole);
    applyLimits();
    languageChanged();
    setFocus();
}

void InputMask::setLimits(const MaskLimits& limits)
{
    if (limits == limits_) return;
    limits_ = limits;
    applyLimits();
}

void InputMask::applyLimits()
{
    const MaskLimits known = isBounded() ? limits_ : MaskLimits{};
    entry_.setLimits(known.lower, known.upper);
    // Without limits there is nothing that could be entered.
    pad_->workOn(isBounded() ? &entry_ : nullptr);
    ok_->setOn(isBounded());
    tell(isBounded() ? NumberEntry::Verdict::Fine : NumberEntry::Verdict::LimitsUnknown);
}

void InputMask::setField(const QString& caption, const QString& unit)
{
    setTitle(caption);
    unit_ = unit;
    update();
}

void InputMask::languageChanged()
{
    ok_->setText(words_(PanelText::Ok));
    cancel_->setText(words_(PanelText::Cancel));
    update();
}

void InputMask::tell(NumberEntry::Verdict verdict)
{
    verdict_ = verdict;
    update();
}

QString InputMask::shown() const
{
    const QString number = QString::fromStdString(entry_.text());
    return unit_.isEmpty() ? number : number + u' ' + unit_;
}

QString InputMask::limits() const
{
    if (!isBounded())
        return words_(PanelText::Lowest) + QStringLiteral(" –   …   ") + words_(PanelText::Highest)
            + QStringLiteral(" –");
    QString text;
    if (entry_.lower()) text = words_(PanelText::Lowest) + u' ' + number(*entry_.lower());
    if (entry_.lower() && entry_.upper()) text += QStringLiteral("   …   ");
    if (entry_.upper()) text += words_(PanelText::Highest) + u' ' + number(*entry_.upper());
    return text;
}

QString InputMask::remark() const
{
    switch (verdict_) {
    case NumberEntry::Verdict::LimitsUnknown: return words_(PanelText::LimitsUnknown);
    case NumberEntry::Verdict::NoFraction: return words_(PanelText::NoFraction);
    case NumberEntry::Verdict::TooLong:
        return words_(PanelText::TooLong) + u' ' + QString::number(NumberEntry::longest);
    case NumberEntry::Verdict::NoNumber: return words_(PanelText::NoNumber);
    case NumberEntry::Verdict::TooSmall: return words_(PanelText::TooSmall) + u' ' + number(*entry_.lower());
    case NumberEntry::Verdict::NoSign: return words_(PanelText::NoSign) + u' ' + number(*entry_.lower());
    case NumberEntry::Verdict::TooLarge: return words_(PanelText::TooLarge) + u' ' + number(*entry_.upper());
    default: return showsOld() ? words_(PanelText::OldValue) : QString{};
    }
}

bool InputMask::check()
{
    const NumberEntry::Verdict verdict = isBounded() ? entry_.verdict() : NumberEntry::Verdict::LimitsUnknown;
    if (verdict != NumberEntry::Verdict::Fine) tell(verdict);
    return verdict == NumberEntry::Verdict::Fine;
}

void InputMask::accept()
{
    if (!check() || !accepted_) return;
    accepted_(*entry_.value(), entry_.changed() || (isOld_ && entry_.isEntered()));
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
    case Qt::Key_Enter:
        // Held down, it would also confirm what comes after the mask.
        if (!event->isAutoRepeat()) accept();
        break;
    case Qt::Key_Escape:
        if (!event->isAutoRepeat()) cancel();
        break;
    case Qt::Key_Backspace: pad_->pressBack(); break;
    case Qt::Key_Delete: pad_->pressClear(); break;
    case Qt::Key_Up: pad_->pressStep(1); break;
    case Qt::Key_Down: pad_->pressStep(-1); break;
    default:
        if (!pad_->type(event->text())) event->ignore();
    }
}

void InputMask::paintValue(QPainter& painter) const
{
    painter.setPen(QPen{refusing() ? colours::refuse : colours::border, refusing() ? 2.0 : 1.0});
    painter.setBrush(colours::field);
    painter.drawRect(valuePlace_.adjusted(0, 0, -1, -1));
    if (showsOld()) drawHatching(painter, valuePlace_.adjusted(1, 1, -1, -1));
    // A number with its unit reads as on the page in every language; only a unit in letters from right to left stands at
    // the other side.
    const bool mirrored = isRightToLeft() && runsRightToLeft(unit_);
    const auto placed = [&](const QRect& place) { return mirrored ? mirroredIn(*this, place) : place; };
    const int toEnd =
        static_cast<int>((mirrored ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignAbsolute | Qt::AlignVCenter);
    const QRect inside = valuePlace_.adjusted(8, 0, -8, 0);
    const QFont unitFont = panelFont(scaled(0.36, valuePlace_.height(), 12, 20));
    const int unitWidth = unit_.isEmpty()
        ? 0
        : std::min(QFontMetrics{unitFont}.horizontalAdvance(unit_) + 2, inside.width() / 3);
    const QRect unitPlace{inside.right() + 1 - unitWidth, inside.top(), unitWidth, inside.height()};
    const QRect numberPlace = inside.adjusted(0, 0, unitWidth == 0 ? 0 : -unitWidth - 8, 0);
    painter.setLayoutDirection(Qt::LeftToRight);
    const QColor ink = showsOld() ? staleInk(colours::ink) : colours::ink;
    painter.setPen(refusing() ? colours::refuse : ink);
    drawFitted(painter, placed(numberPlace), toEnd,
        valueFont(scaled(0.55, valuePlace_.height(), 15, 30), true), QString::fromStdString(entry_.text()));
    painter.setLayoutDirection(layoutDirection());
    painter.setPen(colours::faintInk);
    drawFitted(painter, placed(unitPlace), toEnd, unitFont, unit_);
}

void InputMask::paintEvent(QPaintEvent* event)
{
    Sheet::paintEvent(event);
    QPainter painter{this};
    paintValue(painter);
    const int pixels = scaled(0.034, height(), 10, 15);
    painter.setPen(colours::ink);
    const int side = remarkPlace_.height() - 4;
    drawFitted(painter, limitsPlace_.adjusted(side + 6, 0, -side - 6, 0), Qt::AlignCenter, panelFont(pixels),
        limits());
    painter.setRenderHint(QPainter::Antialiasing);
    if (limitsAreDoubtful())
        drawWarning(painter, mirroredIn(*this, {limitsPlace_.left() + 3, limitsPlace_.top() + 2, side, side}),
            colours::ink);
    if (!remark().isEmpty()) paintRemark(painter, pixels);
}

void InputMask::paintRemark(QPainter& painter, int pixels) const
{
    const QColor ink = refusing() ? colours::barInk : colours::ink;
    painter.fillRect(remarkPlace_, refusing() ? colours::refuse : colours::warn);
    const int side = remarkPlace_.height() - 4;
    drawWarning(
        painter, mirroredIn(*this, {remarkPlace_.left() + 3, remarkPlace_.top() + 2, side, side}), ink);
    painter.setPen(ink);
    drawFitted(painter, remarkPlace_.adjusted(side + 6, 0, -side - 6, 0), Qt::AlignCenter,
        panelFont(pixels, true), remark());
}

void InputMask::resizeEvent(QResizeEvent*) { layOut(); }

void InputMask::changeEvent(QEvent* event)
{
    Sheet::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) layOut();
}

void InputMask::layOut()
{
    const QRect place = inner();
    const int valueHeight = scaled(0.12, height(), 30, 58);
    const int lineHeight = scaled(0.052, height(), 15, 24);
    valuePlace_ = {place.left(), place.top(), place.width(), valueHeight};
    limitsPlace_ = {place.left(), place.top() + valueHeight + 1, place.width(), lineHeight};
    remarkPlace_ = limitsPlace_.translated(0, lineHeight + 1);

    // The keys share the rest: four rows of the pad and one for the way out.
    const int top = remarkPlace_.bottom() + gap;
    const int rest = place.bottom() + 1 - top;
    const int row = (rest + gap) / (KeyPad::rows + 1);
    pad_->setGeometry(place.left(), top, place.width(), row * KeyPad::rows - gap);
    const int last = top + row * KeyPad::rows;
    const int half = (place.width() - gap) / 2;
    const int height = place.bottom() + 1 - last;
    cancel_->setGeometry(mirroredIn(*this, {place.left(), last, half, height}));
    ok_->setGeometry(mirroredIn(*this, {place.right() + 1 - half, last, half, height}));
    for (TouchKey* key : {cancel_, ok_})
        key->setTextPixels(scaled(0.36, row, 11, 20));
    update();
}

} // namespace servopanel::panel

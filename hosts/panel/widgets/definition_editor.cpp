#include "panel/widgets/definition_editor.h"

#include "basic/conversions.h"
#include "panel/look/colours.h"
#include "panel/look/fonts.h"
#include "panel/look/mirroring.h"
#include "panel/look/touch_size.h"
#include "panel/widgets/value_marks.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>

#include <cmath>
#include <limits>

namespace servopanel::panel {

namespace {

constexpr int gap = 4; // pixels between keys
// What the field of a definition holds; a level that nobody has locks the value.
constexpr double mostOfLevel = std::numeric_limits<std::int16_t>::max();

} // namespace

DefinitionEditor::DefinitionEditor(QWidget* parent, PanelWords words)
    : Sheet{parent}
    , words_{std::move(words)}
    , pad_{new KeyPad{this,
          [this](NumberEntry::Verdict verdict) {
              changed();
              // Only a level has no sign.
              if (verdict == NumberEntry::Verdict::NoSign) remark_ = words_(PanelText::LevelRange);
              if (verdict == NumberEntry::Verdict::TooLong)
                  remark_ = words_(PanelText::TooLong) + u' ' + QString::number(NumberEntry::longest);
          }}}
    , cancel_{new TouchKey{this}}
    , ok_{new TouchKey{this}}
{
    for (std::size_t i = 0; i < rowCount; ++i) {
        rowKeys_[i] = new TouchKey{this};
        rowKeys_[i]->setAction([this, i] { choose(static_cast<Row>(i)); });
    }
    ok_->setRole(TouchKey::Role::Accept);
    ok_->setAction([this] { accept(); });
    cancel_->setRole(TouchKey::Role::Refuse);
    cancel_->setAction([this] { cancel(); });
    setFocusPolicy(Qt::StrongFocus);
}

void DefinitionEditor::setHandlers(
    std::function<void(const Definition&)> accepted, std::function<void()> cancelled)
{
    accepted_ = std::move(accepted);
    cancelled_ = std::move(cancelled);
}

void DefinitionEditor::setField(const QString& caption, const QString& unit)
{
    caption_ = caption;
    unit_ = unit;
}

void DefinitionEditor::start(const Definition& definition)
{
    entries_[Least].start(basic::decimal(definition.least));
    entries_[Most].start(basic::decimal(definition.most));
    entries_[Level].start(basic::decimal(std::int32_t{definition.level}));
    entries_[Level].setLimits(0.0, mostOfLevel);
    choose(Least);
    languageChanged();
    setFocus();
}

void DefinitionEditor::languageChanged()
{
    setTitle(caption_.isEmpty() ? words_(PanelText::Definition) : caption_);
    ok_->setText(words_(PanelText::Ok));
    cancel_->setText(words_(PanelText::Cancel));
    changed();
}

void DefinitionEditor::choose(Row row)
{
    chosen_ = row;
    pad_->workOn(&entries_[static_cast<std::size_t>(row)]);
    changed();
}

void DefinitionEditor::changed()
{
    const std::array names{PanelText::Lowest, PanelText::Highest, PanelText::Level};
    for (std::size_t i = 0; i < rowCount; ++i) {
        rowKeys_[i]->setText(words_(names[i]));
        rowKeys_[i]->setValue(valueOf(static_cast<Row>(i)));
        rowKeys_[i]->setChosen(static_cast<Row>(i) == chosen_);
    }
    remark_.clear();
    update();
}

QString DefinitionEditor::valueOf(Row row) const
{
    const QString number = QString::fromStdString(entries_[static_cast<std::size_t>(row)].text());
    // An empty line would look like a key without a value.
    if (number.isEmpty()) return QStringLiteral("–");
    return row == Level || unit_.isEmpty() ? number : number + u' ' + unit_;
}

QString DefinitionEditor::reasonAgainst() const
{
    for (const Row row : {Least, Most})
        if (entries_[static_cast<std::size_t>(row)].verdict() != NumberEntry::Verdict::Fine)
            return words_(PanelText::NoNumber);
    const std::optional<double> level = entries_[Level].value();
    if (!level || entries_[Level].verdict() != NumberEntry::Verdict::Fine || *level != std::floor(*level))
        return words_(PanelText::LevelRange);
    if (*entries_[Least].value() > *entries_[Most].value()) return words_(PanelText::LimitsCrossed);
    return {};
}

void DefinitionEditor::accept()
{
    remark_ = reasonAgainst();
    update();
    if (!remark_.isEmpty() || !accepted_) return;
    accepted_({*entries_[Least].value(), *entries_[Most].value(),
        static_cast<std::int16_t>(*entries_[Level].value())});
}

void DefinitionEditor::cancel()
{
    if (cancelled_) cancelled_();
}

void DefinitionEditor::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!event->isAutoRepeat()) accept();
        break;
    case Qt::Key_Escape:
        if (!event->isAutoRepeat()) cancel();
        break;
    case Qt::Key_Backspace: pad_->pressBack(); break;
    case Qt::Key_Delete: pad_->pressClear(); break;
    case Qt::Key_Up: choose(static_cast<Row>(std::max(0, chosen_ - 1))); break;
    case Qt::Key_Down: choose(static_cast<Row>(std::min(2, chosen_ + 1))); break;
    default:
        if (!pad_->type(event->text())) event->ignore();
    }
}

QRect DefinitionEditor::remarkPlace() const
{
    const QRect last = rowKeys_[Level]->geometry();
    return {last.left(), last.bottom() + 2, last.width(), scaled(0.055, height(), 15, 26)};
}

void DefinitionEditor::paintEvent(QPaintEvent* event)
{
    Sheet::paintEvent(event);
    QPainter painter{this};
    const QRect place = remarkPlace();
    if (remark_.isEmpty()) {
        // The title says whose definition it is, this line what is changed of it.
        if (caption_.isEmpty()) return;
        painter.setPen(colours::faintInk);
        drawFitted(painter, place, Qt::AlignCenter, panelFont(scaled(0.034, height(), 10, 15)),
            words_(PanelText::Definition));
        return;
    }
    painter.fillRect(place, colours::refuse);
    const int side = place.height() - 4;
    painter.setRenderHint(QPainter::Antialiasing);
    drawWarning(painter, mirroredIn(*this, {place.left() + 3, place.top() + 2, side, side}), colours::barInk);
    painter.setPen(colours::barInk);
    drawFitted(painter, place.adjusted(side + 6, 0, -side - 6, 0), Qt::AlignCenter,
        panelFont(scaled(0.034, height(), 10, 15), true), remark_);
}

void DefinitionEditor::resizeEvent(QResizeEvent*) { layOut(); }

void DefinitionEditor::changeEvent(QEvent* event)
{
    Sheet::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) layOut();
}

void DefinitionEditor::layOut()
{
    const QRect place = inner();
    const int rowHeight = std::max(leastTouch(*this), scaled(0.085, height(), 22, 40));
    for (std::size_t i = 0; i < rowCount; ++i) {
        rowKeys_[i]->setGeometry(
            place.left(), place.top() + static_cast<int>(i) * (rowHeight + 2), place.width(), rowHeight);
        rowKeys_[i]->setTextPixels(scaled(0.45, rowHeight, 11, 18));
    }
    const int top = remarkPlace().bottom() + gap;
    const int row = (place.bottom() + 1 - top + gap) / (KeyPad::rows + 1);
    pad_->setGeometry(place.left(), top, place.width(), row * KeyPad::rows - gap);
    const int last = top + row * KeyPad::rows;
    const int half = (place.width() - gap) / 2;
    const int height = place.bottom() + 1 - last;
    cancel_->setGeometry(mirroredIn(*this, {place.left(), last, half, height}));
    for (TouchKey* key : {cancel_, ok_})
        key->setTextPixels(scaled(0.36, row, 11, 20));
    ok_->setGeometry(mirroredIn(*this, {place.right() + 1 - half, last, half, height}));
    update();
}

} // namespace servopanel::panel

#include "panel/widgets/key_pad.h"

#include "panel/look/fonts.h"
#include "panel/look/mirroring.h"

#include <QEvent>

namespace servopanel::panel {

namespace {

constexpr int gap = 4; // pixels between keys
constexpr int fastAfter = 10; // a step key held this long goes ten times as fast
constexpr int fast = 10;

const std::array<QString, KeyPad::rows * KeyPad::columns>& names()
{
    static const std::array<QString, KeyPad::rows * KeyPad::columns> all{QStringLiteral("7"),
        QStringLiteral("8"), QStringLiteral("9"), QStringLiteral("⌫"), //
        QStringLiteral("4"), QStringLiteral("5"), QStringLiteral("6"), QStringLiteral("C"), //
        QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("▲"), //
        QStringLiteral("±"), QStringLiteral("0"), QStringLiteral("."), QStringLiteral("▼")};
    return all;
}

} // namespace

KeyPad::KeyPad(QWidget* parent, Pressed pressed)
    : QWidget{parent}
    , pressed_{std::move(pressed)}
{
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        const QString name = names()[i];
        keys_[i] = new TouchKey{this};
        keys_[i]->setText(name);
        keys_[i]->setAction([this, name] { on(name); });
        keys_[i]->setRepeating(name == QStringLiteral("▲") || name == QStringLiteral("▼"));
    }
}

void KeyPad::workOn(NumberEntry* entry)
{
    entry_ = entry;
    for (TouchKey* each : keys_)
        each->setOn(entry != nullptr);
    key(QStringLiteral("."))->setOn(entry != nullptr && !entry->isWhole());
    key(QStringLiteral("±"))->setOn(entry != nullptr && entry->signAllowed());
}

TouchKey* KeyPad::key(const QString& name) const
{
    for (std::size_t i = 0; i < keys_.size(); ++i)
        if (names()[i] == name) return keys_[i];
    return nullptr;
}

void KeyPad::on(const QString& name)
{
    if (entry_ == nullptr) return;
    if (name == QStringLiteral("⌫")) {
        entry_->back();
    } else if (name == QStringLiteral("C")) {
        entry_->clear();
    } else if (name == QStringLiteral("▲") || name == QStringLiteral("▼")) {
        const int places = key(name)->repeats() < fastAfter ? 1 : fast;
        entry_->step(name == QStringLiteral("▲") ? places : -places);
    } else {
        type(name);
        return;
    }
    pressed_(NumberEntry::Verdict::Fine);
}

bool KeyPad::type(const QString& character)
{
    if (entry_ == nullptr || character.size() != 1) return false;
    const QChar c = character.front();
    NumberEntry::Verdict verdict = NumberEntry::Verdict::Fine;
    // Digits of any script, as a keyboard of the language has them.
    if (c.digitValue() >= 0)
        verdict = entry_->digit(c.digitValue());
    else if (c == u'.' || c == u',' || c == u'٫')
        verdict = entry_->point();
    else if (c == u'-' || c == u'−' || c == u'±')
        verdict = entry_->sign();
    else
        return false;
    pressed_(verdict);
    return true;
}

void KeyPad::pressBack() { on(QStringLiteral("⌫")); }
void KeyPad::pressClear() { on(QStringLiteral("C")); }

void KeyPad::pressStep(int direction)
{
    if (entry_ == nullptr) return;
    entry_->step(direction);
    pressed_(NumberEntry::Verdict::Fine);
}

void KeyPad::arrange()
{
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        int column = static_cast<int>(i) % columns;
        // Only the column of corrections changes sides.
        if (isRightToLeft()) column = (column + 1) % columns;
        const int row = static_cast<int>(i) / columns;
        const int left = column * (width() + gap) / columns;
        const int top = row * (height() + gap) / rows;
        keys_[i]->setGeometry(left, top, (column + 1) * (width() + gap) / columns - gap - left,
            (row + 1) * (height() + gap) / rows - gap - top);
        keys_[i]->setTextPixels(scaled(0.42, keys_[i]->height(), 11, 24));
    }
}

void KeyPad::resizeEvent(QResizeEvent*) { arrange(); }

void KeyPad::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) arrange();
}

} // namespace servopanel::panel

#include "panel/widgets/key_pad.h"

#include "panel/look/fonts.h"

namespace servopanel::panel {

namespace {

constexpr int gap = 4; // pixels between keys

const std::array<QString, KeyPad::rows * KeyPad::columns>& labels()
{
    static const std::array<QString, KeyPad::rows * KeyPad::columns> all{QStringLiteral("7"),
        QStringLiteral("8"), QStringLiteral("9"), QStringLiteral("⌫"), //
        QStringLiteral("4"), QStringLiteral("5"), QStringLiteral("6"), QStringLiteral("C"), //
        QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("▲"), //
        QStringLiteral("±"), QStringLiteral("0"), QStringLiteral("."), QStringLiteral("▼")};
    return all;
}

} // namespace

KeyPad::KeyPad(QWidget* parent, std::function<void()> changed)
    : QWidget{parent}
    , changed_{std::move(changed)}
{
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        const QString label = labels()[i];
        keys_[i] = new TouchKey{this};
        keys_[i]->setText(label);
        keys_[i]->setAction([this, label] { on(label); });
        keys_[i]->setRepeating(label == QStringLiteral("▲") || label == QStringLiteral("▼"));
    }
}

void KeyPad::workOn(NumberEntry* entry)
{
    entry_ = entry;
    key(QStringLiteral("±"))->setVisible(entry != nullptr && entry->signAllowed());
}

TouchKey* KeyPad::key(const QString& label) const
{
    for (TouchKey* each : keys_)
        if (each->text() == label) return each;
    return nullptr;
}

void KeyPad::on(const QString& label)
{
    if (entry_ == nullptr) return;
    if (label == QStringLiteral("⌫"))
        entry_->back();
    else if (label == QStringLiteral("C"))
        entry_->clear();
    else if (label == QStringLiteral("▲"))
        entry_->step(1);
    else if (label == QStringLiteral("▼"))
        entry_->step(-1);
    else
        type(label);
    changed_();
}

bool KeyPad::type(const QString& character)
{
    if (entry_ == nullptr || character.size() != 1) return false;
    const QChar c = character.front();
    if (c >= u'0' && c <= u'9')
        entry_->digit(c.unicode() - u'0');
    else if (c == u'.' || c == u',')
        entry_->point();
    else if (c == u'-' || c == u'±')
        entry_->sign();
    else
        return false;
    changed_();
    return true;
}

void KeyPad::pressBack() { on(QStringLiteral("⌫")); }

void KeyPad::resizeEvent(QResizeEvent*)
{
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        const int column = static_cast<int>(i) % columns;
        const int row = static_cast<int>(i) / columns;
        const int left = column * (width() + gap) / columns;
        const int top = row * (height() + gap) / rows;
        keys_[i]->setGeometry(left, top, (column + 1) * (width() + gap) / columns - gap - left,
            (row + 1) * (height() + gap) / rows - gap - top);
        keys_[i]->setTextPixels(scaled(0.42, keys_[i]->height(), 11, 24));
    }
}

} // namespace servopanel::panel

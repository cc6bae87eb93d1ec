#include "panel/widgets/header_bar.h"

#include "panel/look/colours.h"
#include "panel/look/fonts.h"

#include <QDateTime>
#include <QMouseEvent>
#include <QPainter>

namespace servopanel::panel {

namespace {
constexpr int margin = 14; // pixels at either end
constexpr int refreshMs = 200; // what the page shows changes at a touch
} // namespace

HeaderBar::HeaderBar(QWidget* parent)
    : QWidget{parent}
{
    connect(&clock_, &QTimer::timeout, this, [this] { refresh(); });
    clock_.start(refreshMs);
}

void HeaderBar::setTexts(std::function<HeaderTexts()> texts)
{
    texts_ = std::move(texts);
    refresh();
}

void HeaderBar::setLanguages(const std::vector<HeaderLanguage>& languages, std::function<void(int)> chosen)
{
    for (const LanguageKey& each : keys_)
        delete each.key;
    keys_.clear();
    for (const HeaderLanguage& language : languages) {
        auto* key = new TouchKey{this};
        key->setText(language.name);
        key->setRole(TouchKey::Role::Dark);
        key->setAction([chosen, number = language.number] { chosen(number); });
        key->show();
        keys_.push_back({language.number, key});
    }
    resizeEvent(nullptr);
}

void HeaderBar::setLanguage(int number)
{
    for (const LanguageKey& each : keys_)
        each.key->setChosen(each.number == number);
}

TouchKey* HeaderBar::languageKey(int number) const
{
    for (const LanguageKey& each : keys_)
        if (each.number == number) return each.key;
    return nullptr;
}

void HeaderBar::refresh()
{
    const QDateTime now = QDateTime::currentDateTime();
    const QString time = now.toString(QStringLiteral("HH:mm"));
    const QString date = now.toString(QStringLiteral("yyyy-MM-dd"));
    const HeaderTexts texts = texts_ ? texts_() : HeaderTexts{};
    if (time == time_ && date == date_ && texts == shown_) return;
    time_ = time;
    date_ = date;
    shown_ = texts;
    update();
}

QRect HeaderBar::clockPlace() const
{
    const int place = scaled(0.1, width(), 80, 130);
    return {width() - margin - place, 0, place, height()};
}

int HeaderBar::keysLeft() const
{
    return keys_.empty() ? clockPlace().left() : keys_.front().key->geometry().left();
}

QRect HeaderBar::freePlace() const
{
    const int keyWidth = scaled(0.06, width(), 48, 78);
    const int keyHeight = scaled(0.52, height(), 30, 56);
    return {keysLeft() - margin - keyWidth, (height() - keyHeight) / 2, keyWidth, keyHeight};
}

void HeaderBar::resizeEvent(QResizeEvent*)
{
    const int keyWidth = scaled(0.088, width(), 60, 114);
    const int keyHeight = scaled(0.52, height(), 30, 56);
    int left = clockPlace().left() - margin - static_cast<int>(keys_.size()) * (keyWidth + 6);
    for (const LanguageKey& each : keys_) {
        each.key->setGeometry(left, (height() - keyHeight) / 2, keyWidth, keyHeight);
        each.key->setTextPixels(scaled(0.3, keyHeight, 11, 17));
        left += keyWidth + 6;
    }
}

void HeaderBar::mousePressEvent(QMouseEvent* event) { event->accept(); }
void HeaderBar::mouseDoubleClickEvent(QMouseEvent* event) { event->accept(); }

void HeaderBar::paintEvent(QPaintEvent*)
{
    QPainter painter{this};
    painter.fillRect(rect(), colours::bar);
    painter.fillRect(QRect{0, height() - 3, width(), 3}, colours::accent);

    const auto draw = [&](const QRect& place, const QString& text, int pixels, bool bold, const QColor& ink,
                          Qt::Alignment alignment) {
        painter.setPen(ink);
        drawFitted(painter, place, static_cast<int>(alignment), panelFont(pixels, bold), text);
    };
    const int upper = scaled(0.25, height(), 14, 26);
    const int lower = scaled(0.16, height(), 10, 16);
    const int whole = freePlace().left() - 2 * margin;
    const QRect left{margin, 0, whole * 52 / 100, height()};
    const QRect middle{left.right() + 2 * margin, 0, whole - left.width() - 2 * margin, height()};
    const auto top = [](const QRect& place) { return place.adjusted(0, 0, 0, -place.height() * 45 / 100); };
    const auto bottom = [](const QRect& place) { return place.adjusted(0, place.height() * 58 / 100, 0, 0); };
    constexpr auto toTop = Qt::AlignLeft | Qt::AlignBottom;
    constexpr auto toBottom = Qt::AlignLeft | Qt::AlignTop;
    draw(top(left), shown_.machine, upper, true, colours::barInk, toTop);
    draw(bottom(left), shown_.title, lower, false, colours::barFaintInk, toBottom);
    draw(top(middle), shown_.shown, upper, false, colours::barInk, toTop);
    draw(bottom(middle), shown_.level, lower, false, colours::barFaintInk, toBottom);
    draw(top(clockPlace()), time_, upper, true, colours::barInk, Qt::AlignRight | Qt::AlignBottom);
    draw(bottom(clockPlace()), date_, lower, false, colours::barFaintInk, Qt::AlignRight | Qt::AlignTop);
}

} // namespace servopanel::panel

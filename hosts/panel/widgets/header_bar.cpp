#include "panel/widgets/header_bar.h"

#include "panel/look/colours.h"
#include "panel/look/fonts.h"
#include "panel/look/mirroring.h"
#include "panel/look/touch_size.h"
#include "panel/widgets/value_marks.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace servopanel::panel {

namespace {

constexpr int margin = 14; // pixels at either end
constexpr int gap = 6; // between keys
constexpr int refreshMs = 200; // what the page shows changes at a touch

QColor linkFace(LinkQuality quality)
{
    switch (quality) {
    case LinkQuality::Partly: return colours::warn;
    case LinkQuality::Bad: return colours::refuse;
    default: return colours::bar;
    }
}

} // namespace

HeaderBar::HeaderBar(QWidget* parent)
    : QWidget{parent}
    , now_{[] { return QDateTime::currentDateTime(); }}
{
    connect(&timer_, &QTimer::timeout, this, [this] { refresh(); });
    timer_.start(refreshMs);
}

HeaderBar::~HeaderBar()
{
    // One of its keys may be at work.
    if (sheet_ == nullptr) return;
    sheet_->hide();
    sheet_->deleteLater();
}

void HeaderBar::setTexts(std::function<HeaderTexts()> texts)
{
    texts_ = std::move(texts);
    refresh();
}

void HeaderBar::setClock(std::function<QDateTime()> clock)
{
    now_ = std::move(clock);
    refresh();
}

void HeaderBar::setLanguages(
    const std::vector<HeaderLanguage>& languages, std::function<void(int)> chosen, PanelWords words)
{
    for (TouchKey* each : keys_)
        delete each;
    keys_.clear();
    delete languagesKey_;
    languagesKey_ = nullptr;
    delete sheet_;
    languages_ = languages;
    chosen_ = std::move(chosen);
    words_ = std::move(words);
    if (languages_.size() <= mostKeys) {
        for (const HeaderLanguage& language : languages_) {
            auto* key = new TouchKey{this};
            key->setText(language.name);
            key->setRole(TouchKey::Role::Dark);
            key->setAction([this, number = language.number] { chosen_(number); });
            key->show();
            keys_.push_back(key);
        }
    } else {
        languagesKey_ = new TouchKey{this};
        languagesKey_->setRole(TouchKey::Role::Dark);
        languagesKey_->setAction([this] { openSheet(); });
        languagesKey_->show();
    }
    setLanguage(language_);
    arrange();
}

bool HeaderBar::closeSheet()
{
    if (sheet_ == nullptr || !sheet_->isVisible()) return false;
    sheet_->hide();
    return true;
}

// The sheet lies on the stage, because it is larger than the bar.
void HeaderBar::openSheet()
{
    if (closeSheet()) return;
    QWidget& stage = stageOf(*this);
    if (sheet_ == nullptr)
        sheet_ = new LanguageSheet{&stage, languages_, [this](int number) { chosen_(number); }};
    sheet_->setLanguage(language_);
    sheet_->setWords(words_(PanelText::Languages), words_(PanelText::Close));
    sheet_->open(mapTo(&stage, QPoint{0, height()}).y() + gap);
}

void HeaderBar::setLanguage(int number)
{
    language_ = number;
    for (std::size_t i = 0; i < languages_.size(); ++i) {
        const bool isChosen = languages_[i].number == number;
        if (i < keys_.size()) keys_[i]->setChosen(isChosen);
        if (isChosen && languagesKey_ != nullptr)
            languagesKey_->setText(languages_[i].name + QStringLiteral(" ▾"));
    }
    if (sheet_ != nullptr) sheet_->setLanguage(number);
}

TouchKey* HeaderBar::languageKey(int number) const
{
    for (std::size_t i = 0; i < keys_.size(); ++i)
        if (languages_[i].number == number) return keys_[i];
    return sheet_ == nullptr ? nullptr : sheet_->key(number);
}

void HeaderBar::refresh()
{
    const QDateTime now = now_();
    const QString time = now.toString(QStringLiteral("HH:mm"));
    const QString date = now.toString(QStringLiteral("yyyy-MM-dd"));
    const HeaderTexts texts = texts_ ? texts_() : HeaderTexts{};
    if (time == time_ && date == date_ && texts == shown_) return;
    time_ = time;
    date_ = date;
    shown_ = texts;
    update();
}

int HeaderBar::keyHeight() const { return std::max(leastTouch(*this), scaled(0.52, height(), 30, 56)); }

QRect HeaderBar::clockPlace() const
{
    const int place = scaled(0.13, width(), 104, 160);
    return {width() - margin - place, 0, place, height() * 66 / 100};
}

QRect HeaderBar::linkPlace() const
{
    const QRect clock = clockPlace();
    return {clock.left(), height() * 68 / 100, clock.width(), height() * 26 / 100};
}

QRect HeaderBar::freePlace() const
{
    const int keys = languages_.size() <= mostKeys ? static_cast<int>(languages_.size()) : 1;
    const int languageWidth = scaled(0.088, width(), 60, 114) + gap;
    const int keyWidth = std::max(leastTouch(*this), scaled(0.06, width(), 48, 78));
    const int left = clockPlace().left() - margin - keys * languageWidth - keyWidth - gap;
    return mirrored({left, (height() - keyHeight()) / 2, keyWidth, keyHeight()});
}

QRect HeaderBar::mirrored(const QRect& place) const { return mirroredIn(*this, place); }

void HeaderBar::arrange()
{
    const int width = scaled(0.088, this->width(), 60, 114);
    const int count = languagesKey_ != nullptr ? 1 : static_cast<int>(keys_.size());
    int left = clockPlace().left() - margin - count * (width + gap) + gap;
    const auto put = [&](TouchKey* key) {
        key->setGeometry(mirrored({left, (height() - keyHeight()) / 2, width, keyHeight()}));
        key->setTextPixels(scaled(0.3, keyHeight(), 11, 17));
        left += width + gap;
    };
    for (TouchKey* key : keys_)
        put(key);
    if (languagesKey_ != nullptr) put(languagesKey_);
    update();
    if (arranged_) arranged_();
}

void HeaderBar::resizeEvent(QResizeEvent*) { arrange(); }

void HeaderBar::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) arrange();
}

void HeaderBar::hideEvent(QHideEvent* event)
{
    if (sheet_ != nullptr) sheet_->hide();
    QWidget::hideEvent(event);
}

void HeaderBar::mousePressEvent(QMouseEvent* event) { event->accept(); }
void HeaderBar::mouseDoubleClickEvent(QMouseEvent* event) { event->accept(); }

void HeaderBar::paintLink(QPainter& painter, const QRect& place) const
{
    if (shown_.link.isEmpty()) return;
    const QColor face = linkFace(shown_.quality);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(face);
    painter.drawRoundedRect(mirrored(place), 3, 3);
    const int side = place.height() - 4;
    const QColor ink = shown_.quality == LinkQuality::Partly ? colours::ink : colours::barInk;
    const QRect symbol{place.right() - side - 2, place.top() + 2, side, side};
    const QRect words{place.left() + 3, place.top(), place.width() - side - 10, place.height()};
    // The symbols differ in shape: a tick, a triangle, a cross.
    switch (shown_.quality) {
    case LinkQuality::Good: drawTick(painter, mirrored(symbol), ink); break;
    case LinkQuality::Partly: drawWarning(painter, mirrored(symbol), ink); break;
    case LinkQuality::Bad: drawCross(painter, mirrored(symbol), ink); break;
    }
    painter.setPen(ink);
    drawFitted(painter, mirrored(words), static_cast<int>(trailing(*this) | Qt::AlignVCenter),
        panelFont(scaled(0.15, height(), 10, 15), shown_.quality != LinkQuality::Good), shown_.link);
}

// The access level, and behind it what is unusual about inputs now.
void HeaderBar::paintLevel(QPainter& painter, const QRect& place, int pixels) const
{
    const int toTop = static_cast<int>(leading(*this) | Qt::AlignTop);
    const QFont font = panelFont(pixels);
    painter.setPen(colours::barFaintInk);
    if (shown_.mode.isEmpty()) {
        drawFitted(painter, mirrored(place), toTop, font, shown_.level);
        return;
    }
    const int half = place.width() / 2;
    const int levelWidth = std::min(half, QFontMetrics{font}.horizontalAdvance(shown_.level) + 1);
    drawFitted(painter, mirrored({place.left(), place.top(), levelWidth, place.height()}), toTop, font,
        shown_.level);
    const QFont bold = panelFont(pixels, true);
    const QFontMetrics metrics{bold};
    constexpr int padding = 6;
    const int left = place.left() + levelWidth + padding;
    const int room = place.right() + 1 - left;
    const QRect tag{left, place.top() - 1,
        std::min(room, metrics.horizontalAdvance(shown_.mode) + 2 * padding), metrics.height() + 2};
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours::warn);
    painter.drawRoundedRect(mirrored(tag), 3, 3);
    painter.setPen(colours::ink);
    drawFitted(painter, mirrored(tag.adjusted(padding, 0, -padding, 0)), Qt::AlignCenter, bold, shown_.mode);
}

void HeaderBar::paintEvent(QPaintEvent*)
{
    QPainter painter{this};
    painter.fillRect(rect(), colours::bar);
    painter.fillRect(QRect{0, height() - 3, width(), 3}, colours::accent);

    const auto draw = [&](const QRect& place, const QString& text, int pixels, bool bold, const QColor& ink,
                          Qt::Alignment alignment) {
        painter.setPen(ink);
        drawFitted(painter, mirrored(place), static_cast<int>(alignment), panelFont(pixels, bold), text);
    };
    const int upper = scaled(0.25, height(), 14, 26);
    const int lower = scaled(0.16, height(), 10, 16);
    const int whole = mirrored(freePlace()).left() - 2 * margin;
    const QRect left{margin, 0, whole * 52 / 100, height()};
    const QRect middle{left.right() + 2 * margin, 0, whole - left.width() - 2 * margin, height()};
    const auto top = [](const QRect& place) { return place.adjusted(0, 0, 0, -place.height() * 45 / 100); };
    const auto bottom = [](const QRect& place) { return place.adjusted(0, place.height() * 58 / 100, 0, 0); };
    const Qt::Alignment toTop = leading(*this) | Qt::AlignBottom;
    const Qt::Alignment toBottom = leading(*this) | Qt::AlignTop;
    draw(top(left), shown_.machine, upper, true, colours::barInk, toTop);
    draw(bottom(left), shown_.title, lower, false, colours::barFaintInk, toBottom);
    draw(top(middle), shown_.shown, upper, false, colours::barInk, toTop);
    paintLevel(painter, bottom(middle), lower);
    draw(top(clockPlace()), time_, upper, true, colours::barInk, trailing(*this) | Qt::AlignBottom);
    draw(bottom(clockPlace()), date_, lower, false, colours::barFaintInk, trailing(*this) | Qt::AlignTop);
    paintLink(painter, linkPlace());
}

} // namespace servopanel::panel

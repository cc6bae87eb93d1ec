#pragma once

#include "panel/look/panel_text.h"
#include "panel/widgets/language_sheet.h"
#include "panel/widgets/touch_key.h"

#include <QDateTime>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <vector>

namespace servopanel::panel {

// How well what is shown follows the machine.
enum class LinkQuality {
    Good,
    Partly, // some values could not be read
    Bad, // nothing can be read
};

struct HeaderTexts {
    QString title; // of the project
    QString machine;
    QString shown; // what the page below shows
    QString level;
    QString link; // the word for its quality
    LinkQuality quality = LinkQuality::Good;
    QString mode{}; // what a touch on a value means, where it is not the usual
    friend bool operator==(const HeaderTexts&, const HeaderTexts&) = default;
};

// The bar at the top: project and machine, what is shown, access level, link, the operator's languages, the time. Up to
// three languages have a key each; more stand on a sheet that one key opens.
class HeaderBar : public QWidget {
public:
    explicit HeaderBar(QWidget* parent);
    ~HeaderBar() override;

    // texts is asked several times a second.
    void setTexts(std::function<HeaderTexts()> texts);
    // Where the time comes from. Nothing but what the bar shows depends on it, so it may jump.
    void setClock(std::function<QDateTime()> clock);
    // words: for the sheet of languages.
    void setLanguages(const std::vector<HeaderLanguage>& languages, std::function<void(int number)> chosen,
        PanelWords words);
    void setLanguage(int number);
    void refresh();
    TouchKey* languageKey(int number) const;
    // Opens the sheet of languages; nullptr when every language has a key of its own.
    TouchKey* languagesKey() { return languagesKey_; }
    LanguageSheet* languageSheet() { return sheet_; }
    // Closes the sheet of languages; false when it was not open.
    bool closeSheet();
    // Kept free of the header's own texts, for the key of the list of reports.
    QRect freePlace() const;
    // Called when that place has changed.
    void setArrangedHandler(std::function<void()> arranged) { arranged_ = std::move(arranged); }

    const HeaderTexts& shown() const { return shown_; }
    QString shownTime() const { return date_ + u' ' + time_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    static constexpr std::size_t mostKeys = 3; // languages with a key of their own

    void arrange();
    void openSheet();
    QRect clockPlace() const;
    QRect linkPlace() const;
    int keyHeight() const;
    void paintLevel(QPainter& painter, const QRect& place, int pixels) const;
    void paintLink(QPainter& painter, const QRect& place) const;
    // Places are reckoned from left to right and mirrored at the end.
    QRect mirrored(const QRect& place) const;

    std::function<HeaderTexts()> texts_;
    std::function<void()> arranged_;
    std::function<QDateTime()> now_;
    PanelWords words_;
    std::vector<HeaderLanguage> languages_;
    std::vector<TouchKey*> keys_; // one per language, or none
    TouchKey* languagesKey_ = nullptr;
    QPointer<LanguageSheet> sheet_; // on the stage, which may end first
    std::function<void(int)> chosen_;
    HeaderTexts shown_;
    QString time_;
    QString date_;
    QTimer timer_;
    int language_ = 0;
};

} // namespace servopanel::panel

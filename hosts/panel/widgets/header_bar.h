#pragma once

#include "panel/widgets/touch_key.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <vector>

namespace servopanel::panel {

struct HeaderLanguage {
    int number = 0;
    QString name; // shown on its key
};

struct HeaderTexts {
    QString title; // of the project
    QString machine;
    QString shown; // what the page below shows
    QString level;
    friend bool operator==(const HeaderTexts&, const HeaderTexts&) = default;
};

// The bar at the top: project and machine, what is shown, the operator's languages, the time.
class HeaderBar : public QWidget {
public:
    explicit HeaderBar(QWidget* parent);

    // texts is asked several times a second.
    void setTexts(std::function<HeaderTexts()> texts);
    void setLanguages(const std::vector<HeaderLanguage>& languages, std::function<void(int number)> chosen);
    void setLanguage(int number);
    void refresh();
    TouchKey* languageKey(int number) const;
    // Kept free of the header's own texts, for the key of the list of reports.
    QRect freePlace() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    struct LanguageKey {
        int number;
        TouchKey* key;
    };

    QRect clockPlace() const;
    int keysLeft() const;

    std::function<HeaderTexts()> texts_;
    std::vector<LanguageKey> keys_;
    HeaderTexts shown_;
    QString time_;
    QString date_;
    QTimer clock_;
};

} // namespace servopanel::panel

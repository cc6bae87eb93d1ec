#pragma once

#include "panel/widgets/sheet.h"
#include "panel/widgets/touch_key.h"

#include <functional>
#include <vector>

namespace servopanel::panel {

struct HeaderLanguage {
    int number = 0;
    QString name; // shown on its key, in the language's own script
};

// The languages of a project on keys. Choosing one or the key at the bottom closes it; nobody has to choose.
class LanguageSheet : public Sheet {
public:
    LanguageSheet(QWidget* parent, const std::vector<HeaderLanguage>& languages,
        std::function<void(int number)> chosen);

    void setLanguage(int number);
    void setWords(const QString& title, const QString& close);
    // Opens at the right edge of its parent, below this height; at the left edge from right to left.
    void open(int top);
    TouchKey* key(int number) const;
    TouchKey& closeKey() { return *close_; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct Key {
        int number;
        TouchKey* key;
    };

    int keyHeight() const;
    int rows() const { return (static_cast<int>(keys_.size()) + columns - 1) / columns; }
    void arrange();

    static constexpr int columns = 2;
    std::vector<Key> keys_;
    TouchKey* close_;
    int top_ = 0;
};

} // namespace servopanel::panel

#pragma once

#include "panel/look/panel_text.h"
#include "panel/widgets/scroll_pane.h"
#include "panel/widgets/sheet.h"
#include "panel/widgets/touch_key.h"

#include <QDateTime>

#include <deque>

namespace servopanel::panel {

// One report, how often it came, and when first and last.
struct ErrorEntry {
    enum class Origin { Library, Panel };
    Origin origin = Origin::Panel;
    QString text;
    QString procedure; // that reported it; empty for the panel's own notes
    QDateTime first;
    QDateTime last;
    int times = 1;
};

// The reports for whoever looks after the panel, the latest first. While there are none it is not seen; then a key with
// their number opens the list. It stops nobody from working on. Equal reports are counted in one line, and beyond 200
// lines the oldest goes.
class ErrorList {
public:
    ErrorList(QWidget& parent, PanelWords words, std::function<QDateTime()> clock);

    void add(ErrorEntry::Origin origin, const QString& text, const QString& procedure = {});
    // Told of every report, also of one that only counts on.
    void setAddedHandler(std::function<void(const ErrorEntry&)> added) { added_ = std::move(added); }
    // Closes the list and takes the reports of one origin away.
    void forget(ErrorEntry::Origin origin);
    // The operator has seen them all.
    void clear();
    // Where the key stands and where the list may begin, pixels of the parent: the header stays in sight.
    void place(const QRect& key, int top);
    // Shows its words anew, after the language has changed.
    void languageChanged();

    void open();
    void close();
    bool isOpen() const;
    int count() const;
    const std::deque<ErrorEntry>& entries() const { return entries_; }
    TouchKey& badge() { return *badge_; }
    TouchKey& closeKey() { return *close_; }
    TouchKey& clearKey() { return *clear_; }
    ScrollPane& pane() { return *pane_; }
    Sheet& sheet();

private:
    class ListSheet;
    void adapt();
    void raiseBadge();
    int rowHeight(const ErrorEntry& entry, int width) const;
    void paintRows(QPainter& painter, const QRect& place) const;

    QWidget& parent_;
    PanelWords words_;
    std::function<QDateTime()> clock_;
    std::function<void(const ErrorEntry&)> added_;
    std::deque<ErrorEntry> entries_;
    int top_ = 0;
    TouchKey* badge_;
    ListSheet* sheet_;
    ScrollPane* pane_;
    TouchKey* clear_;
    TouchKey* close_;
};

} // namespace servopanel::panel

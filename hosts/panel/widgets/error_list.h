#pragma once

#include "panel/look/panel_text.h"
#include "panel/widgets/sheet.h"
#include "panel/widgets/touch_key.h"

#include <deque>

namespace servopanel::panel {

// One report, and how often it came in a row.
struct ErrorEntry {
    enum class Origin { Library, Panel };
    Origin origin = Origin::Panel;
    QString text;
    QString time;
    int times = 1;
};

// The reports for whoever looks after the panel, newest first. While there are none it is not seen; then a key with
// their number stands in the top right corner of its parent and opens the list. It stops nobody from working on.
class ErrorList {
public:
    ErrorList(QWidget& parent, PanelWords words);

    void add(ErrorEntry::Origin origin, const QString& text);
    // Closes the list and takes the reports of one origin away.
    void forget(ErrorEntry::Origin origin);
    // Where the key stands, pixels of the parent.
    void place(const QRect& key);

    void open();
    void close();
    bool isOpen() const { return sheet_->isVisibleTo(sheet_->parentWidget()); }
    int count() const;
    const std::deque<ErrorEntry>& entries() const { return entries_; }
    TouchKey& badge() { return *badge_; }
    TouchKey& closeKey() { return *close_; }

private:
    class Rows;
    void adapt();

    QWidget& parent_;
    PanelWords words_;
    std::deque<ErrorEntry> entries_;
    TouchKey* badge_;
    Sheet* sheet_;
    Rows* rows_;
    TouchKey* close_;
};

} // namespace servopanel::panel

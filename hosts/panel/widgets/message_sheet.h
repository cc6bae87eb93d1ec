#pragma once

#include "panel/look/panel_text.h"
#include "panel/widgets/scroll_pane.h"
#include "panel/widgets/sheet.h"
#include "panel/widgets/touch_key.h"

namespace servopanel::panel {

// A message with an OK key. It covers its parent, so that nothing behind it can be touched while it is open. A text that
// is too long for the screen scrolls.
class MessageSheet : public QWidget {
public:
    MessageSheet(QWidget* parent, const QString& title, const QString& text, const QString& ok);
    ~MessageSheet() override;

    // Returns when the operator has read the message, or when the message or the program ends.
    void run();
    // As if the operator had read it.
    void end();
    TouchKey& okKey() { return *ok_; }
    const QString& text() const { return text_; }
    ScrollPane& pane() { return *pane_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QFont textFont() const;
    int textHeight(int width) const;

    QString text_;
    Sheet* sheet_;
    ScrollPane* pane_;
    TouchKey* ok_;
    std::function<void()> done_;
};

} // namespace servopanel::panel

#include "panel/widgets/message_sheet.h"

#include "panel/look/colours.h"
#include "panel/look/fonts.h"
#include "panel/look/touch_size.h"
#include "panel/look/wrapped_text.h"

#include <QEventLoop>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QScopeGuard>

#include <algorithm>

namespace servopanel::panel {

namespace {
constexpr int margin = 16;
} // namespace

MessageSheet::MessageSheet(QWidget* parent, const QString& title, const QString& text, const QString& ok)
    : QWidget{parent}
    , text_{text}
    , sheet_{new Sheet{this}}
    , pane_{new ScrollPane{sheet_}}
    , ok_{new TouchKey{sheet_}}
{
    setFocusPolicy(Qt::StrongFocus);
    sheet_->setTitle(title);
    ok_->setText(ok);
    ok_->setRole(TouchKey::Role::Accept);
    ok_->setAction([this] { end(); });
    setGeometry(parent->rect());
    pane_->setFace(colours::sheet);
    pane_->setContent([this](int width) { return textHeight(width); },
        [this](QPainter& painter, const QRect& place) {
            painter.setPen(colours::ink);
            // A short text stands in the middle.
            const int above = std::max(0, pane_->height() - place.height()) / 2;
            drawWrapped(painter, place.adjusted(margin, above, -margin, above),
                {place.left(), 0, place.width(), pane_->height()}, Qt::AlignHCenter, textFont(), text_);
        });
}

MessageSheet::~MessageSheet() { end(); }

QFont MessageSheet::textFont() const { return panelFont(scaled(0.018, width(), 15, 20)); }

int MessageSheet::textHeight(int width) const
{
    return wrappedHeight(text_, textFont(), std::max(1, width - 2 * margin));
}

// However long the text is, the key stays on the screen; the text then scrolls.
void MessageSheet::resizeEvent(QResizeEvent*)
{
    const int width = std::min(560, rect().width() - 2 * margin);
    const int keyHeight = std::max(leastTouch(*this), scaled(0.06, rect().height(), 40, 60));
    const int around = sheet_->titleHeight(rect().height()) + keyHeight + 3 * margin;
    const int words = std::clamp(textHeight(width - 2 * margin), 60, rect().height() - 2 * margin - around);
    sheet_->setGeometry(
        (rect().width() - width) / 2, (rect().height() - around - words) / 2, width, around + words);
    const int top = sheet_->titleHeight() + margin;
    const int bottom = around + words - margin - keyHeight;
    pane_->setGeometry(margin, top, width - 2 * margin, bottom - margin - top);
    ok_->setGeometry((width - 200) / 2, bottom, 200, keyHeight);
}

void MessageSheet::run()
{
    QEventLoop loop;
    done_ = [&loop] { loop.quit(); };
    show();
    raise();
    setFocus();
    const QPointer<MessageSheet> self{this};
    const auto ended = qScopeGuard([&] {
        if (!self) return;
        done_ = nullptr;
        hide();
    });
    loop.exec();
}

void MessageSheet::end()
{
    if (done_) done_();
}

void MessageSheet::paintEvent(QPaintEvent*)
{
    QPainter painter{this};
    painter.fillRect(rect(), QColor{0, 0, 0, 90});
}

void MessageSheet::mousePressEvent(QMouseEvent* event) { event->accept(); }
void MessageSheet::mouseMoveEvent(QMouseEvent* event) { event->accept(); }
void MessageSheet::mouseReleaseEvent(QMouseEvent* event) { event->accept(); }
void MessageSheet::mouseDoubleClickEvent(QMouseEvent* event) { event->accept(); }

void MessageSheet::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    if (event->isAutoRepeat()) return;
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Escape)
        end();
}

} // namespace servopanel::panel

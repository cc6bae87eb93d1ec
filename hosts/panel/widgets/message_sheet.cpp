#include "panel/widgets/message_sheet.h"

#include "panel/look/colours.h"
#include "panel/look/fonts.h"

#include <QEventLoop>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>

namespace servopanel::panel {

namespace {
constexpr int margin = 16;
}

MessageSheet::MessageSheet(QWidget* parent, const QString& title, const QString& text, const QString& ok)
    : QWidget{parent}
    , text_{text}
    , sheet_{new Sheet{this}}
    , ok_{new TouchKey{sheet_}}
{
    setGeometry(parent->rect());
    setFocusPolicy(Qt::StrongFocus);
    const int width = std::min(560, rect().width() - 2 * margin);
    auto* words = new QLabel{text, sheet_};
    words->setWordWrap(true);
    words->setAlignment(Qt::AlignCenter);
    words->setFont(panelFont(scaled(0.018, rect().width(), 13, 18)));
    QPalette palette;
    palette.setColor(QPalette::WindowText, colours::ink);
    words->setPalette(palette);

    const int keyHeight = scaled(0.06, rect().height(), 40, 60);
    const int textHeight = std::max(60, words->heightForWidth(width - 2 * margin));
    const int height = 36 + textHeight + keyHeight + 3 * margin;
    sheet_->setTitle(title);
    sheet_->setGeometry((rect().width() - width) / 2, (rect().height() - height) / 2, width, height);
    words->setGeometry(margin, 36 + margin, width - 2 * margin, textHeight);
    ok_->setText(ok);
    ok_->setRole(TouchKey::Role::Accept);
    ok_->setGeometry((width - 200) / 2, height - margin - keyHeight, 200, keyHeight);
    ok_->setAction([this] { close(); });
}

void MessageSheet::run()
{
    QEventLoop loop;
    done_ = [&loop] { loop.quit(); };
    show();
    raise();
    setFocus();
    loop.exec();
    done_ = nullptr;
    hide();
}

void MessageSheet::close()
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
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Escape)
        close();
}

} // namespace servopanel::panel

#include "panel/window/other_screen.h"

#include "panel/look/colours.h"
#include "panel/look/contrast.h"
#include "panel/look/fonts.h"

#include <QPainter>

namespace servopanel::panel {

OtherScreen::OtherScreen(QWidget* stage, const QString& title, const QString& number, const QString& back)
    : QWidget{stage}
    , title_{title}
    , number_{number}
    , back_{new TouchKey{this}}
{
    resize(stage->size());
    const int keyWidth = scaled(0.25, width(), 180, 320);
    const int keyHeight = scaled(0.1, height(), 56, 96);
    back_->setText(back);
    back_->setTextPixels(scaled(0.3, keyHeight, 16, 26));
    back_->setGeometry((width() - keyWidth) / 2, height() * 62 / 100, keyWidth, keyHeight);
}

void OtherScreen::paintEvent(QPaintEvent*)
{
    QPainter painter{this};
    painter.fillRect(rect(), colours::background);
    painter.fillRect(QRect{0, 0, width(), height() / 10}, colours::bar);
    constexpr int margin = 16;
    const int inside = width() - 2 * margin;
    painter.setPen(colours::ink);
    drawFitted(painter, {margin, height() * 30 / 100, inside, height() * 12 / 100}, Qt::AlignCenter,
        panelFont(scaled(0.045, height(), 24, 46), true), title_);
    painter.setPen(readable(colours::faintInk, colours::background));
    drawFitted(painter, {margin, height() * 42 / 100, inside, height() * 8 / 100}, Qt::AlignCenter,
        panelFont(scaled(0.022, height(), 13, 22)), number_);
}

} // namespace servopanel::panel

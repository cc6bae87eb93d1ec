#pragma once

#include "panel/widgets/scaled_picture.h"

#include <QImage>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>

namespace servopanel::panel {

// A key on the screen: pressed look while the finger is on it, and it acts when the finger is lifted inside. A
// repeating key acts at once and again while it is held.
class TouchKey : public QWidget {
public:
    enum class Role { Plain, Accept, Refuse, Dark, Alarm };

    explicit TouchKey(QWidget* parent);

    void setAction(std::function<void()> action) { action_ = std::move(action); }
    void setText(const QString& text);
    const QString& text() const { return text_; }
    // A small name in the corner, such as "F1".
    void setCorner(const QString& corner);
    void setPicture(const QImage& picture);
    const QImage& picture() const { return picture_.picture(); }
    void setRole(Role role);
    // A face of another colour and a thick frame, for a key that stands for something active.
    void setHighlight(std::optional<QColor> colour);
    void setOn(bool on);
    bool isOn() const { return on_; }
    // While it is off and has no picture, the key is an empty place.
    void setBlankWhileOff(bool blank) { blankWhileOff_ = blank; }
    // While it is off it is no key that waits for better times but only shows something, such as the access level.
    void setSign(bool sign);
    bool isSign() const { return !on_ && sign_; }
    // It looks as if it were off and has a warning sign: what it stands for cannot be done now, and a touch says why.
    void setHeldBack(bool heldBack);
    bool isHeldBack() const { return on_ && heldBack_; }
    void setRepeating(bool repeating) { repeating_ = repeating; }
    void setChosen(bool chosen); // the chosen one of several keys
    void setTextPixels(int pixels) { textPixels_ = pixels; }
    // A value at the end of the line; the text then stands at its beginning.
    void setValue(const QString& value);
    const QString& value() const { return value_; }
    // How often a held key has acted since the finger came down, 0 at the first time.
    int repeats() const { return repeats_; }
    bool isDown() const { return down_; }
    // The pressed look for a moment, for a key that is pressed elsewhere: on a keyboard or on the panel's edge.
    void showPress();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void act();
    void letGo();
    void paintValue(QPainter& painter, const QRect& place, int pixels) const;
    // In grey the frame alone tells it from other keys.
    bool isFramed() const { return on_ && highlight_.has_value(); }
    void paintWarning(QPainter& painter, const QRect& inside) const;
    QColor face() const;
    QColor ink() const;

    std::function<void()> action_;
    QString text_;
    QString corner_;
    QString value_;
    ScaledPicture picture_;
    QTimer repeat_;
    std::optional<QColor> highlight_;
    Role role_ = Role::Plain;
    int textPixels_ = 0; // 0: by the key's height
    int repeats_ = 0;
    bool on_ = true;
    bool down_ = false; // finger on it
    bool held_ = false; // finger came down on it and is not lifted
    bool repeating_ = false;
    bool chosen_ = false;
    bool blankWhileOff_ = false;
    bool sign_ = false;
    bool heldBack_ = false;
};

} // namespace servopanel::panel

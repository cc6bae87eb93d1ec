#pragma once

#include <QString>
#include <QWidget>

namespace servopanel::panel {

// A sheet that lies on the page: dark title bar, light face, strong border. It takes every touch on itself.
class Sheet : public QWidget {
public:
    explicit Sheet(QWidget* parent);
    void setTitle(const QString& title);
    const QString& title() const { return title_; }

    // Readable on small sheets too.
    int titleHeight() const { return titleHeight(height()); }
    // Of a sheet that is to be so high, pixels.
    int titleHeight(int height) const;
    // The space inside the border and below the title.
    QRect inner() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    QString title_;
};

} // namespace servopanel::panel

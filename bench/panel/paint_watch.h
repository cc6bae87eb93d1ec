#pragma once

#include <QObject>
#include <QWidget>

#include <cstdint>
#include <set>

namespace servopanel::bench {

// Counts what is painted in the whole program.
class PaintWatch : public QObject {
public:
    PaintWatch();

    void startAnew();
    int paintings() const { return paintings_; } // of single widgets
    std::int64_t pixels() const { return pixels_; } // where widgets lie upon each other each counts
    bool hasPainted(const QWidget& widget) const { return widgets_.count(&widget) > 0; }

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    std::set<const QObject*> widgets_;
    int paintings_ = 0;
    std::int64_t pixels_ = 0;
};

// Runs what has been asked for, paintings included, until nothing is left to be done.
void workUntilIdle();

} // namespace servopanel::bench

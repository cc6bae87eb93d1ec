#pragma once

#include <QObject>
#include <QTimer>

#include <memory>

namespace servopanel {

namespace panel {
class Panel;
}

// A panel whose widget has gone while one of its procedures was running or a message was open. Nobody sees it any more; it
// ends its messages, lets the procedure come to its end and deletes itself from the event loop.
class OrphanedPanel : public QObject {
public:
    explicit OrphanedPanel(std::unique_ptr<panel::Panel> panel);
    ~OrphanedPanel() override;

private:
    void look();

    std::unique_ptr<panel::Panel> panel_;
    QTimer timer_;
};

} // namespace servopanel

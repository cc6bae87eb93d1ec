#include "panel/tour/tour.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QPixmap>
#include <QTimer>

namespace servopanel::panel {

Tour::Tour(Panel& panel, std::filesystem::path folder)
    : panel_{panel}
    , folder_{std::move(folder)}
{
}

int Tour::play()
{
    QEventLoop loop;
    QTimer::singleShot(1500, &loop, [&loop] { loop.quit(); });
    loop.exec();
    panel_.window().stage().grab().save(QString::fromStdString((folder_ / "01.png").string()));
    return 0;
}

} // namespace servopanel::panel

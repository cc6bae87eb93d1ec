// A panel that confirms a change of every family as soon as it sees the machine's values. Others end it meanwhile.
//
//   confirming_panel SOCKET     of the broker
#include "panel/look/fonts.h"
#include "panel_on_broker/broker_panel.h"

#include <QApplication>
#include <QStyleFactory>

#include <cstdlib>
#include <iostream>

using namespace servopanel;

int main(int argc, char** argv)
try {
    if (argc != 2) return EXIT_FAILURE;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application{argc, argv};
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setFont(panel::panelFont(14));
    mqtt::BrokerAddress address;
    address.socket = argv[1];
    const servopanel::testing::TestProject project{servopanel::testing::standardProject};
    servopanel::testing::BrokerPanel operated{project, address, "P1"};
    operated.hands->menuKey(1);
    if (!QTest::qWaitFor([&] { return operated.isGood("SollwertL", 1); }, 20'000)) return EXIT_FAILURE;
    operated.changeEveryFamily();
    std::cout << operated.confirm() << std::endl;
    return EXIT_SUCCESS;
} catch (const basic::Error& error) {
    std::cerr << error.description << '\n';
    return EXIT_FAILURE;
} catch (const panel::NotThere& missing) {
    std::cerr << missing.what << " is not there\n";
    return EXIT_FAILURE;
}

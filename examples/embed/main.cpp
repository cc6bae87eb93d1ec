// The servo pages of an HMI project beside keys of one's own: embed PROJECT [--picture FILE]
#include <widgets/servo_widget.h>

#include <QApplication>
#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

int main(int argc, char** argv)
{
    QApplication application{argc, argv};
    const QStringList arguments = QApplication::arguments();

    QWidget window;
    auto* servo = new servopanel::ServoWidget{&window};
    auto* reports = new QLabel{"No reports", &window};
    auto* english = new QPushButton{"English", &window};
    servo->setProject(arguments.value(1));
    QObject::connect(servo, &servopanel::ServoWidget::reported, reports, &QLabel::setText);
    QObject::connect(english, &QPushButton::clicked, servo, [servo] { servo->setLanguage("en"); });

    auto* layout = new QGridLayout{&window};
    layout->addWidget(servo, 0, 0, 1, 2);
    layout->addWidget(reports, 1, 0);
    layout->addWidget(english, 1, 1);
    layout->setRowStretch(0, 1);
    window.resize(1100, 940);
    window.show();

    if (arguments.value(2) == "--picture")
        QTimer::singleShot(
            1000, &window, [&] { QApplication::exit(window.grab().save(arguments.value(3)) ? 0 : 1); });
    return QApplication::exec();
}

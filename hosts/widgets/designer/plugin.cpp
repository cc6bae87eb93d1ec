#include "widgets/designer/plugin.h"

#include "widgets/servo_main_widget.h"
#include "widgets/servo_menu_widget.h"
#include "widgets/servo_widget.h"

#include <QIcon>

namespace servopanel {

namespace {

template <class Widget>
class Offer : public QDesignerCustomWidgetInterface {
public:
    Offer(const char* className, const char* header, const char* what)
        : className_{QString::fromLatin1(className)}
        , header_{QString::fromLatin1(header)}
        , what_{QString::fromLatin1(what)}
    {
    }

    QString name() const override { return QStringLiteral("servopanel::") + className_; }
    QString group() const override { return QStringLiteral("Servo panel"); }
    QString toolTip() const override { return what_; }
    QString whatsThis() const override { return what_; }
    QString includeFile() const override { return header_; }
    QIcon icon() const override { return {}; }
    bool isContainer() const override { return false; }
    bool isInitialized() const override { return inEditor_; }
    // Only an editor calls this; a form loader that makes the real screen does not.
    void initialize(QDesignerFormEditorInterface*) override { inEditor_ = true; }
    QWidget* createWidget(QWidget* parent) override
    {
        auto* widget = new Widget{parent};
        widget->setProperty("drawnOnly", inEditor_);
        return widget;
    }
    QString domXml() const override
    {
        const QSize size = Widget{}.sizeHint() / 2;
        QString instance = className_;
        instance.front() = instance.front().toLower();
        return QStringLiteral(
            R"(<ui language="c++"><widget class="%1" name="%2"><property name="geometry">)"
            R"(<rect><x>0</x><y>0</y><width>%3</width><height>%4</height></rect></property></widget></ui>)")
            .arg(name(), instance)
            .arg(size.width())
            .arg(size.height());
    }

private:
    QString className_;
    QString header_;
    QString what_;
    bool inEditor_ = false;
};

} // namespace

DesignerPlugin::DesignerPlugin()
{
    widgets_.push_back(std::make_unique<Offer<ServoWidget>>(
        "ServoWidget", "widgets/servo_widget.h", "Header, menu and pages of the servo drives of a machine"));
    widgets_.push_back(std::make_unique<Offer<ServoMenuWidget>>(
        "ServoMenuWidget", "widgets/servo_menu_widget.h", "A picture key for each servo drive of a machine"));
    widgets_.push_back(std::make_unique<Offer<ServoMainWidget>>(
        "ServoMainWidget", "widgets/servo_main_widget.h", "Parameters and diagnosis of one servo drive"));
}

QList<QDesignerCustomWidgetInterface*> DesignerPlugin::customWidgets() const
{
    QList<QDesignerCustomWidgetInterface*> all;
    for (const auto& each : widgets_)
        all.push_back(each.get());
    return all;
}

} // namespace servopanel

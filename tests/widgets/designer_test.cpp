// The plugin of form editors and form loaders.
#include "widgets/control_widget.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QPluginLoader>
#include <QTest>
#include <QUiLoader>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

using servopanel::ControlWidget;

namespace {

QUiLoader& loader()
{
    static QUiLoader shared;
    shared.clearPluginPaths();
    shared.addPluginPath(QString::fromUtf8(PLUGINS));
    return shared;
}

const char* form = R"(<?xml version="1.0" encoding="UTF-8"?>
<ui version="4.0">
 <class>Screen</class>
 <widget class="QWidget" name="Screen">
  <widget class="servopanel::ServoWidget" name="servoWidget">
   <property name="geometry"><rect><x>10</x><y>20</y><width>640</width><height>512</height></rect></property>
   <property name="project"><string>)" DEMO_PROJECT R"(</string></property>
   <property name="resolution"><number>800</number></property>
   <property name="language"><string>en</string></property>
   <property name="accessLevel"><number>1</number></property>
  </widget>
 </widget>
 <customwidgets>
  <customwidget>
   <class>servopanel::ServoWidget</class>
   <extends>QWidget</extends>
   <header>widgets/servo_widget.h</header>
  </customwidget>
 </customwidgets>
</ui>
)";

} // namespace

TEST(DesignerPlugin, OffersTheThreeControls)
{
    const QStringList all = loader().availableWidgets();
    for (const char* name : {"ServoWidget", "ServoMenuWidget", "ServoMainWidget"})
        EXPECT_TRUE(all.contains(QStringLiteral("servopanel::") + QString::fromLatin1(name))) << name;
}

TEST(DesignerPlugin, AFormWithAControlIsShownWithItsProperties)
{
    QBuffer file;
    file.setData(form);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const std::unique_ptr<QWidget> screen{loader().load(&file)};
    ASSERT_NE(screen, nullptr) << loader().errorString().toStdString();
    auto* widget = screen->findChild<QWidget*>("servoWidget");
    ASSERT_NE(widget, nullptr);
    EXPECT_STREQ(widget->metaObject()->className(), "servopanel::ServoWidget");
    EXPECT_EQ(widget->property("resolution").toInt(), 800);
    EXPECT_EQ(widget->property("accessLevel").toInt(), 1);
    screen->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(screen.get()));
    EXPECT_TRUE(QTest::qWaitFor([&] { return widget->property("language").toString() == "2"; }));
    EXPECT_FALSE(widget->findChildren<QWidget*>().isEmpty());
}

// What an editor inserts when the control is dragged onto a form, and that it stays a drawing there.
TEST(DesignerPlugin, InAnEditorNothingRuns)
{
    QPluginLoader plugin{QString::fromUtf8(PLUGINS) + "/libservopanel_designer.so"};
    auto* collection = qobject_cast<QDesignerCustomWidgetCollectionInterface*>(plugin.instance());
    ASSERT_NE(collection, nullptr) << plugin.errorString().toStdString();
    for (QDesignerCustomWidgetInterface* each : collection->customWidgets()) {
        EXPECT_TRUE(each->domXml().contains("class=\"" + each->name() + '"'));
        each->initialize(nullptr);
        const std::unique_ptr<QWidget> widget{each->createWidget(nullptr)};
        widget->setProperty("project", DEMO_PROJECT);
        widget->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(widget.get()));
        EXPECT_TRUE(widget->findChildren<QWidget*>().isEmpty()) << each->name().toStdString();
    }
}

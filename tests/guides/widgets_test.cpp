// The integrator's pieces around the widgets, in a window as the guide has it.
#include "machine/split_variables.h"
#include "machine/variable_store.h"
#include "widgets/servo_main_widget.h"
#include "widgets/servo_widget.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QStringList>
#include <QWidget>

#include <memory>

namespace {

struct Log : QObject {
    QStringList lines;
    void add(const QString& line) { lines.append(line); }
};

} // namespace

TEST(IntegratorsGuide, ItsWidgetStandsInAWindowAndTellsTheLog)
{
    QWidget window;
    Log reports;
    Log* const log = &reports;
#include "servo_widget.inc"
    EXPECT_EQ(servo->project(), "/srv/carton");
    emit servo->reported("a line");
    EXPECT_EQ(reports.lines, QStringList{"a line"});
}

TEST(IntegratorsGuide, ItsWidgetsTakeVariablesFromElsewhere)
{
    servopanel::ServoMainWidget widget;
    auto* const page = &widget;
    const auto machine = std::make_shared<servopanel::machine::VariableStore>();
#include "variables.inc"
    // The widget holds what it was given.
    EXPECT_GT(machine.use_count(), 1);
}

// Access levels and limits in the running panel, on a real database file: what service changes is there after a restart.
#include "jet/definition_row.h"
#include "jet/new_database.h"
#include "panel/form/ini_eingabe.h"
#include "panel/form/vws_var.h"
#include "platform/ids.h"
#include "support/standard_project.h"
#include "test_project.h"

#include <gtest/gtest.h>

#include <fstream>

using namespace servopanel;
using basic::Variant;
using panel::Operator;
using panel::Panel;
using servopanel::testing::TestProject;

namespace {

constexpr std::int16_t service = 5;

jet::DefinitionRow setpoint(std::int16_t element, std::int16_t pass)
{
    return {std::string{"M1"}, std::string{"Ch1.M1_T_servo_3<.mM1_servo_para_3>"}, 1000.0, -1000.0, element,
        100.0, 0.0, pass};
}

// A panel from its start to its end; the project on the disk is all that stays.
class Session {
public:
    Session(const TestProject& project, std::int16_t level)
    {
        panel::PanelSettings settings = project.settings();
        settings.makeDatabase = nullptr; // the project's own file
        settings.level = level;
        panel_ = std::make_unique<Panel>(std::move(settings));
        reader_ = std::make_unique<servopanel::testing::MessageReader>(*panel_);
        panel_->window().show();
        if (!QTest::qWaitForWindowExposed(&panel_->window())) throw std::runtime_error{"no window"};
        panel_->openServo();
        hands_ = std::make_unique<Operator>(*panel_);
        hands_->menuKey(1);
    }

    Operator& hands() { return *hands_; }
    panel::VWSVarIn& input(std::int16_t index)
    {
        return panel_->shownPart()->require<panel::VWSVarIn>("SollwertL", index);
    }
    panel::DefinitionEditor& editor()
    {
        return panel_->shownPart()->require<panel::IniEingabeChild>("IniEingabe").editor();
    }
    // The number of a row.
    std::string number(panel::DefinitionEditor::Row row)
    {
        return editor().rowKey(row).value().toStdString();
    }
    std::string reports()
    {
        std::string all;
        for (const auto& entry : panel_->errors().entries())
            all += entry.text.toStdString() + "\n";
        return all;
    }

private:
    std::unique_ptr<Panel> panel_;
    std::unique_ptr<servopanel::testing::MessageReader> reader_;
    std::unique_ptr<Operator> hands_;
};

class DefinitionRestart : public ::testing::Test {
protected:
    DefinitionRestart()
    {
        const auto bytes = jet::newDefinitionDatabase({setpoint(0, 0), setpoint(1, 3), setpoint(2, 0)});
        std::ofstream{project_.file("Servo/Servo.mdb"), std::ios::binary}.write(
            reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }

    TestProject project_{servopanel::testing::standardProject};
};

} // namespace

TEST_F(DefinitionRestart, AnInputAboveTheOperatorsLevelIsGreyAndCannotBeTouched)
{
    constexpr std::int32_t grey = 0x808080;
    Session session{project_, 0};
    EXPECT_TRUE(session.input(1).enabled());
    EXPECT_FALSE(session.input(2).enabled());
    EXPECT_EQ(session.input(2).get(platform::ids::VWSVarIn::Vordergrund, {}), Variant{grey});
    EXPECT_TRUE(Session(project_, 3).input(2).enabled());
}

TEST_F(DefinitionRestart, LimitAndLevelThatServiceChangesAreThereAfterARestart)
{
    {
        Session session{project_, service};
        session.hands().footerKey(4);
        session.hands().input("SollwertL", 1);
        session.hands().editorRow(panel::DefinitionEditor::Most);
        session.hands().editorType("80.5");
        session.hands().editorRow(panel::DefinitionEditor::Level);
        session.hands().editorType("4");
        session.hands().editorOk();
        EXPECT_EQ(session.reports().find("Servo.mdb"), std::string::npos) << session.reports();
    }
    {
        Session session{project_, 0};
        EXPECT_FALSE(session.input(1).enabled());
        EXPECT_TRUE(session.input(3).enabled());
    }
    Session session{project_, service};
    EXPECT_TRUE(session.input(1).enabled());
    session.hands().footerKey(4);
    session.hands().input("SollwertL", 1);
    EXPECT_EQ(session.number(panel::DefinitionEditor::Most), "80.5 mm");
    EXPECT_EQ(session.number(panel::DefinitionEditor::Least), "0 mm");
    EXPECT_EQ(session.number(panel::DefinitionEditor::Level), "4");
}

TEST_F(DefinitionRestart, ADatabaseThatCannotBeWrittenIsReportedByNameAndThePageGoesOn)
{
    std::ofstream{project_.file("Servo/Servo.ldb")} << "";
    Session session{project_, service};
    session.hands().footerKey(4);
    session.hands().input("SollwertL", 1);
    session.hands().editorRow(panel::DefinitionEditor::Most);
    session.hands().editorType("80");
    session.hands().editorOk();
    EXPECT_NE(session.reports().find("another user has it open (lock file 'Servo.ldb')"), std::string::npos)
        << session.reports();
    EXPECT_NE(session.reports().find("Servo.mdb"), std::string::npos) << session.reports();
    session.hands().footerKey(4);
    session.hands().input("SollwertL", 1);
    session.hands().type("42");
    session.hands().ok();
    session.hands().footerKey(10);
    EXPECT_EQ(session.input(1).get(platform::ids::VWSVarIn::Wert, {}), Variant{42.0});
}

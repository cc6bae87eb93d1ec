#include "shell/fehler_melden.h"

#include "display/fehler_anzeige.h"
#include "servo_menu/menu_project.h"
#include "shell/library.h"
#include "support/fakes.h"
#include "support/replay_fixture.h"

#include <limits>

namespace servopanel::testing {

namespace {

// A display that notes what it is told and may refuse.
class NotedDisplay final : public platform::ErrorDisplay {
public:
    void ErrMessage(std::int32_t number, std::string_view source, std::string_view description,
        std::string_view text) override
    {
        if (refuse) basic::raise(basic::ErrorNumber::ObjectNotSet);
        lines.push_back(basic::decimal(number) + "|" + std::string{source} + "|" + std::string{description}
            + "|" + std::string{text});
        if (during) during();
    }
    void CloseMe() override { ++closed; }

    std::vector<std::string> lines;
    std::function<void()> during;
    bool refuse = false;
    int closed = 0;
};

class Objects final : public platform::LateObjects {
public:
    std::shared_ptr<platform::ProcessVarAccess> createProcessVarAccess() override { return nullptr; }
    std::shared_ptr<platform::PathHelper> createPathHelper() override { return nullptr; }
    std::shared_ptr<platform::ErrorDisplay> createErrorDisplay() override
    {
        ++asked;
        if (unavailable) basic::raise(basic::ErrorNumber::ObjectNotSet);
        return display;
    }
    std::shared_ptr<platform::DBEngine> createDBEngine() override { return nullptr; }

    std::shared_ptr<NotedDisplay> display = std::make_shared<NotedDisplay>();
    bool unavailable = false;
    int asked = 0;
};

class FehlerMelden : public ::testing::Test {
protected:
    void report(std::int32_t number = 13) { melder.report({number, {}, "Type mismatch"}, "Ma WerteLesen"); }

    FakePlatform surround;
    Objects objects;
    display::GemeinsamerZustand zustand;
    ErrorList errors;
    basic::StatementTrap trap{errors, "Terminate"};
    shell::FehlerMelder melder{{objects, surround, surround, surround, surround, surround}, zustand};
};

} // namespace

TEST_F(FehlerMelden, PassesNumberLibraryDescriptionAndComposedText)
{
    report();
    EXPECT_EQ(objects.display->lines,
        std::vector<std::string>{"13|Servo|Type mismatch|###U:### ###B:false### ###F:0###Ma WerteLesen"});
    EXPECT_EQ(zustand.FehlerAnzahl, 1);
}

TEST_F(FehlerMelden, KeepsTheSourceOfAForeignError)
{
    melder.report({-5, "Controller", "gone"}, "OpenIni");
    EXPECT_EQ(objects.display->lines.front().substr(0, 14), "-5|Controller|");
}

TEST_F(FehlerMelden, PutsTheHostsThreeValuesIntoTheText)
{
    melder.zusatz = {"Smith", true, 12};
    report();
    EXPECT_EQ(objects.display->lines.front(),
        "13|Servo|Type mismatch|###U:Smith### ###B:true### ###F:12###Ma WerteLesen");
}

TEST_F(FehlerMelden, MakesTheDisplayOnceForManyReports)
{
    report();
    report();
    EXPECT_EQ(objects.asked, 1);
    EXPECT_EQ(zustand.FehlerAnzahl, 2);
}

TEST_F(FehlerMelden, TriesAgainWhenTheDisplayCannotBeMade)
{
    objects.unavailable = true;
    report();
    EXPECT_EQ(zustand.FehlerAnzahl, 0);
    objects.unavailable = false;
    report();
    EXPECT_EQ(zustand.FehlerAnzahl, 1);
    EXPECT_EQ(objects.asked, 2);
}

TEST_F(FehlerMelden, CountsNothingWithoutADisplay)
{
    objects.display = nullptr;
    report();
    EXPECT_EQ(zustand.FehlerAnzahl, 0);
    EXPECT_EQ(objects.asked, 1);
}

TEST_F(FehlerMelden, MakesANewDisplayAfterTheOldOneWasClosedAndKeepsCounting)
{
    report();
    display::fehlerAnzeigeSchliessen(trap, zustand);
    display::fehlerAnzeigeSchliessen(trap, zustand);
    EXPECT_EQ(objects.display->closed, 1);
    report();
    EXPECT_EQ(objects.asked, 2);
    EXPECT_EQ(zustand.FehlerAnzahl, 2);
}

TEST_F(FehlerMelden, LosesOnlyTheReportThatTheDisplayRefuses)
{
    objects.display->refuse = true;
    report();
    EXPECT_TRUE(objects.display->lines.empty());
    EXPECT_EQ(zustand.FehlerAnzahl, 1);
    EXPECT_EQ(zustand.FehlerAnzeige, objects.display);

    objects.display->refuse = false;
    report();
    EXPECT_EQ(objects.asked, 1);
    EXPECT_EQ(objects.display->lines.size(), 1U);
    EXPECT_EQ(zustand.FehlerAnzahl, 2);
}

TEST_F(FehlerMelden, ClosesADisplayThatHasRefusedItsOnlyReport)
{
    objects.display->refuse = true;
    report();
    display::fehlerAnzeigeSchliessen(trap, zustand);
    EXPECT_EQ(objects.display->closed, 1);
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(FehlerMelden, KeepsTheDisplayWhenTheLibrarysNameIsUnknown)
{
    surround.world.fail("libraryName", 1);
    report();
    EXPECT_TRUE(objects.display->lines.empty());
    EXPECT_EQ(zustand.FehlerAnzahl, 1);
    report();
    EXPECT_EQ(objects.asked, 1);
    EXPECT_EQ(objects.display->lines.size(), 1U);
}

TEST_F(FehlerMelden, TakesTheHostsValuesThroughTheLibrary)
{
    shell::Library library{{objects, surround, surround, surround, surround, surround}};
    library.meldungsZusatz().U = "Night shift";
    library.errors().report({6, {}, "Overflow"}, "OpenIni");
    EXPECT_EQ(objects.display->lines.front(),
        "6|Servo|Overflow|###U:Night shift### ###B:false### ###F:0###OpenIni");
}

TEST_F(FehlerMelden, DoesNotReportFromWithinAReport)
{
    objects.display->during = [this] { report(9); };
    report();
    EXPECT_EQ(objects.display->lines.size(), 1U);
    EXPECT_EQ(zustand.FehlerAnzahl, 1);
}

TEST_F(FehlerMelden, StopsCountingAtTheEndOfItsRange)
{
    zustand.FehlerAnzahl = std::numeric_limits<std::int16_t>::max();
    report();
    EXPECT_EQ(zustand.FehlerAnzahl, std::numeric_limits<std::int16_t>::max());
    EXPECT_EQ(objects.display->lines.size(), 1U);
}

class UserControlTerminate : public ReplayFixture { };

TEST_F(UserControlTerminate, ClosesTheErrorDisplayOnceAmongAllControls)
{
    run(menuProject(2) + "fail read Ch-1.intern<.passwort>\n");
    run("create\nshow");
    EXPECT_EQ(run("terminate"), "> terminate\ncloseme\nput ServoMain.Timer.Enabled = false\n");
}

TEST_F(UserControlTerminate, ClosesNothingWithoutAReport)
{
    run(menuProject(2));
    run("create\nshow");
    EXPECT_EQ(run("terminate"), "> terminate\nput ServoMain.Timer.Enabled = false\n");
}

} // namespace servopanel::testing

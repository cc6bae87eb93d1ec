#include "recording/replay.h"

#include "recording/fake_library.h"
#include "support/error_number.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace servopanel;
using namespace servopanel::recording;
using servopanel::testing::errorNumber;
using servopanel::testing::FakeHosted;
using servopanel::testing::FakeLibrary;
namespace ids = platform::ids;
namespace names = platform::names;

struct ReplayTest : ::testing::Test {
    FakeLibrary fake;
    Replay replay{fake.maker()};

    // What the commands of a created control leave behind.
    std::string created(const std::string& scenario)
    {
        if (replay.host().servo() == nullptr) replay.run("create");
        return replay.run(scenario);
    }
    // What happens to the controls, without the echo.
    std::string happened(const std::string& scenario)
    {
        created(scenario);
        std::string found = replay.lines({"read Servo", "refused", "timer off"});
        for (std::size_t at = found.find(" failed"); at != std::string::npos; at = found.find(" failed"))
            found.erase(at, 7);
        return found;
    }
    void react(const std::string& happening, FakeHosted::Reaction reaction)
    {
        fake.shared.reactions[happening] = std::move(reaction);
    }
    void openMask()
    {
        react("ServoMain put open", [](FakeHosted& page) {
            platform::Eingabemaske mask{page.platform.form.child({"Eingabemaske"})};
            mask.Ziel(page.platform.form.child({"SollwertL", 5}));
            mask.Offen(true);
        });
        created("");
        replay.host().servo()->inner("ServoMain")->hosted().put(platform::named("open"), true);
    }
    void openEditor()
    {
        react("ServoMain put editor", [](FakeHosted& page) {
            platform::IniEingabe{page.platform.form.child({"IniEingabe"})}.Offen(true);
        });
        created("");
        replay.host().servo()->inner("ServoMain")->hosted().put(platform::named("editor"), true);
    }
    std::string problemOf(std::string_view scenario)
    {
        try {
            replay.run(scenario);
            return "none";
        } catch (const ScenarioError& error) {
            return basic::decimal(static_cast<std::int32_t>(error.line())) + ": " + error.what();
        }
    }
};

TEST_F(ReplayTest, InitializesTheInnerControlsBeforeTheOneThatHoldsThem)
{
    EXPECT_EQ(replay.run("create\nshow\nterminate"),
        "> create\n"
        "read ServoMain initialize failed\n"
        "read ServoMenu initialize failed\n"
        "read Servo initialize failed\n"
        "> show\n"
        "read Servo show failed\n"
        "> terminate\n"
        "read ServoMain terminate failed\n"
        "read ServoMenu terminate failed\n"
        "read Servo terminate failed\n");
}

TEST_F(ReplayTest, ContinuesInTheSameStateAndGivesEachRunItsOwnTrace)
{
    replay.run("var A = 1\ncreate");
    EXPECT_EQ(replay.run("show"), "> show\nread Servo show failed\n");
    EXPECT_EQ(replay.run("# nothing"), "");
}

TEST_F(ReplayTest, GivesTheLinesThatBeginAlike)
{
    replay.run("create");
    EXPECT_EQ(replay.lines("> "), "> create\n");
    EXPECT_EQ(replay.lines({"> ", "read Servo i"}), "> create\nread Servo initialize failed\n");
    EXPECT_EQ(replay.lines("write"), "");
}

TEST_F(ReplayTest, PassesTheTraceOnWhileItPlays)
{
    std::string passed;
    Replay other{fake.maker(), [&](std::string_view lines) { passed += lines; }};
    const std::string whole = other.run("create\nshow");
    EXPECT_EQ(passed, whole);
}

TEST_F(ReplayTest, RefusesAnOperationWithoutAControl)
{
    const std::string problem = "there is no control; 'create' makes one";
    EXPECT_EQ(problemOf("show"), "1: " + problem);
    EXPECT_EQ(problemOf("\nterminate"), "2: " + problem);
    EXPECT_EQ(problemOf("scroll 2"), "1: " + problem);
    EXPECT_EQ(problemOf("down 1 1"), "1: " + problem);
    EXPECT_EQ(problemOf("language 1"), "1: " + problem);
    EXPECT_EQ(problemOf("poke modified 1"), "1: " + problem);
    EXPECT_EQ(problemOf("create\ncreate"), "2: the control exists already");
}

TEST_F(ReplayTest, RefusesWhatAnOperatorCannotDoWithoutAControl)
{
    EXPECT_EQ(replay.run(
                  "touch SollwertL 5\nmask 1\nmask cancel\nini 0 1 1\nini cancel\nkey 31\nmenukey! 5\ntimer"),
        "> touch SollwertL 5\nrefused touch\n"
        "> mask 1\nrefused mask\n"
        "> mask cancel\nrefused mask\n"
        "> ini 0 1 1\nrefused ini\n"
        "> ini cancel\nrefused ini\n"
        "> key 31\nrefused key\n"
        "> menukey! 5\nrefused key\n"
        "> timer\ntimer off\n");
}

TEST_F(ReplayTest, CreatesAControlAgainAfterItsEnd)
{
    replay.run("create\nterminate");
    EXPECT_EQ(fake.shared.alive, 0);
    EXPECT_EQ(replay.run("create").find("> create\nread ServoMain initialize failed\n"), 0U);
    EXPECT_EQ(fake.shared.alive, 3);
}

TEST_F(ReplayTest, TouchesInputs)
{
    EXPECT_EQ(happened("touch SollwertL 5"), "read ServoMain SollwertL(5) MouseDown 1 0 0 0\n");
    EXPECT_EQ(happened("touch SchalterR 33"), "read ServoMain SchalterR(33) SchalterGedrückt\n");
    EXPECT_EQ(happened("touch ZeichnungL 43"), "read ServoMain ZeichnungL(43) MouseDown 1 0 0 0\n");
}

TEST_F(ReplayTest, RefusesATouchOfWhatIsHiddenDisabledOrMissing)
{
    EXPECT_EQ(happened("touch SollwertL 6"), "refused touch\n");
    EXPECT_EQ(happened("touch SollwertL 7"), "refused touch\n");
    auto& page = *replay.host().servo()->inner("ServoMain");
    page.form().find({"SollwertL", 5})->put(names::Enabled, false);
    page.form().find({"SchalterR", 33})->put(ids::Schalter::Freigabe, false);
    EXPECT_EQ(happened("touch SollwertL 5\ntouch SchalterR 33"), "refused touch\nrefused touch\n");
}

TEST_F(ReplayTest, RefusesATouchWhenTheFrameOrThePageIsHidden)
{
    created("");
    auto& page = *replay.host().servo()->inner("ServoMain");
    page.form().find({"MainRahmen", 1})->put(names::Visible, false);
    EXPECT_EQ(happened("touch SollwertL 5"), "refused touch\n");
    page.form().find({"MainRahmen", 1})->put(names::Visible, true);
    page.self().put(names::Visible, false);
    EXPECT_EQ(happened("touch SollwertL 5"), "refused touch\n");
}

TEST_F(ReplayTest, SetsTheMasksValueThenReportsChangeAndCompletion)
{
    openMask();
    EXPECT_EQ(happened("mask 12.5"),
        "read ServoMain Eingabemaske EingabeAenderung\n"
        "read ServoMain Eingabemaske Eingabefertig\n");
    EXPECT_EQ(replay.run("get ServoMain.SollwertL(5).8"),
        "> get ServoMain.SollwertL(5).8\nstate ServoMain.SollwertL(5).8 = 12.5\n");
    EXPECT_EQ(replay.lines("put"), "");
}

TEST_F(ReplayTest, ReportsNoChangeForTheSameValue)
{
    openMask();
    created("mask 12");
    EXPECT_EQ(happened("mask 12.0"), "read ServoMain Eingabemaske Eingabefertig\n");
    EXPECT_EQ(happened("mask \"12\""), "read ServoMain Eingabemaske Eingabefertig\n");
    EXPECT_EQ(happened("mask 13"),
        "read ServoMain Eingabemaske EingabeAenderung\n"
        "read ServoMain Eingabemaske Eingabefertig\n");
}

TEST_F(ReplayTest, TakesBothPointsIntoTheMask)
{
    openMask();
    created("mask \"7,25\"");
    created("get ServoMain.SollwertL(5).8");
    EXPECT_EQ(replay.lines("state"), "state ServoMain.SollwertL(5).8 = 7.25\n");
}

TEST_F(ReplayTest, RefusesWhatTheMaskCannotTakeAndLeavesItOpen)
{
    openMask();
    EXPECT_EQ(happened("mask 100.01"), "refused mask\n");
    EXPECT_EQ(happened("mask -1"), "refused mask\n");
    EXPECT_EQ(happened("mask \"abc\""), "refused mask\n");
    EXPECT_EQ(happened("mask true"), "refused mask\n");
    EXPECT_EQ(happened("mask [1]"), "refused mask\n");
    EXPECT_EQ(happened("mask cancel"), "read ServoMain Eingabemaske Eingabefertig\n");
}

TEST_F(ReplayTest, SendsNoCompletionToAPageThatTheChangeHasEnded)
{
    openMask();
    react("ServoMain Eingabemaske EingabeAenderung", [this](FakeHosted&) { replay.host().endServo(); });
    EXPECT_EQ(happened("mask 12.5"),
        "read ServoMain Eingabemaske EingabeAenderung\n"
        "read ServoMain terminate\nread ServoMenu terminate\nread Servo terminate\n");
}

TEST_F(ReplayTest, ConfirmsTheEditorWithItsValues)
{
    openEditor();
    EXPECT_EQ(happened("ini 1.5 20 3"), "read ServoMain IniEingabe EingabeFertig\n");
    created("get ServoMain.IniEingabe.0x68030006\nget ServoMain.IniEingabe.0x68030005\n"
            "get ServoMain.IniEingabe.0x68030004");
    EXPECT_EQ(replay.lines("state"),
        "state ServoMain.IniEingabe.0x68030006 = 1.5\n"
        "state ServoMain.IniEingabe.0x68030005 = 20\n"
        "state ServoMain.IniEingabe.0x68030004 = 3\n");
}

TEST_F(ReplayTest, RefusesAnEditorsLimitsInTheWrongOrder)
{
    openEditor();
    EXPECT_EQ(happened("ini 20 1.5 3"), "refused ini\n");
    EXPECT_EQ(happened("ini 20 20 3"), "read ServoMain IniEingabe EingabeFertig\n");
}

TEST_F(ReplayTest, ReportsCompletionWhenTheEditorIsLeft)
{
    openEditor();
    EXPECT_EQ(happened("ini cancel"), "read ServoMain IniEingabe EingabeFertig\n");
    created("get ServoMain.IniEingabe.0x68030004");
    EXPECT_EQ(replay.lines("state"), "state ServoMain.IniEingabe.0x68030004 = 0\n");
}

TEST_F(ReplayTest, PressesOnlyFooterKeysThatAreOn)
{
    EXPECT_EQ(happened("key 5"), "refused key\n");
    EXPECT_EQ(happened("key 31"), "read ServoMain Fußzeile TasteClick 31\n");
    EXPECT_EQ(happened("menukey 31"), "read ServoMenu Fußzeile TasteClick 31\n");
    EXPECT_EQ(happened("menukey 11"), "refused key\n");
    EXPECT_EQ(happened("key! 5"), "read ServoMain Fußzeile TasteClick 5\n");
    EXPECT_EQ(happened("menukey! 11"), "read ServoMenu Fußzeile TasteClick 11\n");
    EXPECT_EQ(happened("key 99"), "refused key\n");
    EXPECT_EQ(happened("key! -1"), "read ServoMain Fußzeile TasteClick -1\n");
}

TEST_F(ReplayTest, PressesAKeyThatTheControlHasSwitchedOn)
{
    react("ServoMain Fußzeile TasteClick 31", [](FakeHosted& page) {
        const basic::Variant args[]{std::uint8_t{5}, true};
        page.platform.form.child({"Fußzeile"})->call(ids::Fußzeile::Freigabe, args);
    });
    EXPECT_EQ(created("key 31\nkey 5\nget ServoMain.Fußzeile.0x68030004(5)"),
        "> key 31\n"
        "read ServoMain Fußzeile TasteClick 31 failed\n"
        "call ServoMain.Fußzeile.0x68030004(5, true)\n"
        "> key 5\n"
        "read ServoMain Fußzeile TasteClick 5 failed\n"
        "> get ServoMain.Fußzeile.0x68030004(5)\n"
        "state ServoMain.Fußzeile.0x68030004(5) = true\n");
}

TEST_F(ReplayTest, DeliversEachMovementOfThePointerByItself)
{
    EXPECT_EQ(happened("down 105 2340\nmove -1.5 2.25\nup 0 0"),
        "read ServoMenu MouseDown 1 0 105 2340\n"
        "read ServoMenu MouseMove 1 0 -1.5 2.25\n"
        "read ServoMenu MouseUp 1 0 0 0\n");
    EXPECT_EQ(happened("menudown BildIm 1 10 20\nmenumove BildIm 1 11 21\nmenuup Beschriftung 8 1 2"),
        "read ServoMenu BildIm(1) MouseDown 1 0 10 20\n"
        "read ServoMenu BildIm(1) MouseMove 1 0 11 21\n"
        "read ServoMenu Beschriftung(8) MouseUp 1 0 1 2\n");
}

TEST_F(ReplayTest, MovesAScrollBarBeforeItReports)
{
    std::int16_t position = 0;
    react("ServoMenu ScrollBar NeuePos 3", [&](FakeHosted& menu) {
        position = basic::toInt16(menu.platform.form.child({"ScrollBar"})->get(ids::ScrollBar::Position));
    });
    EXPECT_EQ(happened("scroll 3"), "read ServoMenu ScrollBar NeuePos 3\n");
    EXPECT_EQ(position, 3);
    EXPECT_EQ(replay.lines("put"), "");
    EXPECT_EQ(happened("pagescroll 200"), "read ServoMain ScrollBar NeuePos 200\n");
}

TEST_F(ReplayTest, TicksOnlyWhileTheTimerRuns)
{
    EXPECT_EQ(created("timer"), "> timer\ntimer off\n");
    replay.host().servo()->inner("ServoMain")->form().find({"Timer"})->put(names::Enabled, true);
    EXPECT_EQ(happened("timer"), "read ServoMain Timer Timer\n");
}

TEST_F(ReplayTest, ReportsALanguageFromTheHeader)
{
    EXPECT_EQ(happened("language 2"), "read Servo Header SpracheGeandert 2\n");
}

TEST_F(ReplayTest, PokesThePagesModifiedFlag)
{
    EXPECT_EQ(happened("poke modified 1"), "read ServoMain put poke.modified\n");
    EXPECT_EQ(fake.shared.properties["ServoMain.poke.modified"], basic::Variant{std::int16_t{1}});
}

TEST_F(ReplayTest, BringsAnEventToTheControlAround)
{
    react("ServoMenu ScrollBar NeuePos 1", [](FakeHosted& menu) {
        const basic::Variant args[]{std::int16_t{6}};
        menu.platform.owner.raise("ServoBildAufrufen", args);
    });
    EXPECT_EQ(created("scroll 1"),
        "> scroll 1\n"
        "read ServoMenu ScrollBar NeuePos 1 failed\n"
        "raise ServoMenu.ServoBildAufrufen(6)\n"
        "read Servo ServoMenu ServoBildAufrufen 6 failed\n");
}

TEST_F(ReplayTest, SetsAnInnerControlsOwnPropertiesThroughIt)
{
    react("Servo show", [](FakeHosted& servo) {
        const auto page = servo.platform.form.child({"ServoMain"});
        page->put(names::BildShow, std::int16_t{-1});
        page->put(names::Visible, false);
    });
    EXPECT_EQ(created("show\nget ServoMain.BildShow\nget ServoMain.Visible"),
        "> show\n"
        "read Servo show failed\n"
        "put ServoMain.BildShow = true\n"
        "read ServoMain put BildShow failed\n"
        "put ServoMain.Visible = false\n"
        "> get ServoMain.BildShow\n"
        "state ServoMain.BildShow = true\n"
        "> get ServoMain.Visible\n"
        "state ServoMain.Visible = false\n");
}

TEST_F(ReplayTest, RunsWhatWaitsForThePumpInOrder)
{
    react("Servo show", [this](FakeHosted&) { fake.library->surroundings.letEventsRun(); });
    EXPECT_EQ(created("on pump scroll 2\non pump var A = 5\non pump scroll 3\nshow\nshow"),
        "> on pump scroll 2\n"
        "> on pump var A = 5\n"
        "> on pump scroll 3\n"
        "> show\n"
        "read Servo show failed\n"
        "pump\n"
        "> scroll 2\n"
        "read ServoMenu ScrollBar NeuePos 2 failed\n"
        "> scroll 3\n"
        "read ServoMenu ScrollBar NeuePos 3 failed\n"
        "> show\n"
        "read Servo show failed\n"
        "pump\n");
    EXPECT_NE(replay.host().world().variables.find("A"), nullptr);
}

TEST_F(ReplayTest, LeavesWhatAPumpCommandOrdersToTheNextPump)
{
    react("Servo show", [this](FakeHosted&) { fake.library->surroundings.letEventsRun(); });
    created("on pump on pump scroll 2\nshow");
    EXPECT_EQ(replay.lines("read ServoMenu"), "");
    created("show");
    EXPECT_EQ(replay.lines("read ServoMenu"), "read ServoMenu ScrollBar NeuePos 2 failed\n");
}

TEST_F(ReplayTest, TellsAProblemDuringThePumpWithItsOwnLine)
{
    react("Servo show", [this](FakeHosted&) { fake.library->surroundings.letEventsRun(); });
    created("");
    EXPECT_EQ(problemOf("\non pump create\nshow"), "2: the control exists already");
    EXPECT_EQ(problemOf("show"), "none");
}

TEST_F(ReplayTest, DestroysAControlOnlyWhenNoneOfItsProceduresRuns)
{
    std::int32_t error = 0;
    int alive = 0;
    react("Servo show", [&](FakeHosted& servo) {
        fake.library->surroundings.letEventsRun();
        error = errorNumber([&] { return servo.platform.form.child({"Header"}); });
        alive = fake.shared.alive;
    });
    created("on pump terminate\nshow");
    EXPECT_EQ(error, 91);
    EXPECT_EQ(alive, 3);
    EXPECT_EQ(fake.shared.alive, 0);
}

TEST_F(ReplayTest, FailsEveryCallOfAControlAfterItsEnd)
{
    react("ServoMain terminate", [](FakeHosted& page) {
        // At its end the control still has its children.
        page.platform.form.child({"Timer"})->put(names::Enabled, false);
    });
    react("Servo terminate", [](FakeHosted& servo) {
        EXPECT_EQ(errorNumber([&] { return servo.platform.surface.get(names::Height); }), 0);
    });
    created("terminate");
    EXPECT_EQ(replay.lines("put"), "put ServoMain.Timer.Enabled = false\n");
}

TEST_F(ReplayTest, FailsAsOftenAsArranged)
{
    auto& variables = *fake.shared.variables;
    replay.run("var A = 1\nfail read A 2");
    EXPECT_NE(errorNumber([&] { return variables.ReadValue("A"); }), 0);
    EXPECT_NE(errorNumber([&] { return variables.ReadValue("A"); }), 0);
    EXPECT_EQ(variables.ReadValue("A"), basic::Variant{std::int16_t{1}});
    replay.run("fail write A");
    for (int i = 0; i < 5; ++i)
        EXPECT_NE(errorNumber([&] { return variables.WriteValue("A", true), 0; }), 0);
    replay.run("fail none");
    variables.WriteValue("A", std::int16_t{2});
    EXPECT_EQ(replay.run("vars"), "> vars\nstate var A = 2\n");
}

TEST_F(ReplayTest, KnowsOnlyTheVariablesThatAScenarioNames)
{
    auto& variables = *fake.shared.variables;
    EXPECT_NE(errorNumber([&] { return variables.ReadValue("B"); }), 0);
    EXPECT_NE(errorNumber([&] { return variables.WriteValue("B", true), 0; }), 0);
    EXPECT_EQ(replay.run("var B = 1\nvars"), "> vars\n");
}

TEST_F(ReplayTest, TellsWrittenVariablesInOrder)
{
    replay.run("var b = 1\nvar a = 1\nvar c = 1");
    fake.shared.variables->WriteValue("b", basic::Variant{"x"});
    fake.shared.variables->WriteValue("a", basic::doubles({1, 2}));
    EXPECT_EQ(replay.run("vars"), "> vars\nstate var a = [1, 2]\nstate var b = \"x\"\n");
}

TEST_F(ReplayTest, FailsFilesByProjectRelativeAndAbsoluteNames)
{
    const auto library = *fake.library;
    replay.run("picture Servo\\A.gif 1 1\npicture C:\\Temp\\A.gif 1 1\n"
               "fail load Servo\\A.gif\nfail mkdir C:\\Temp\\B 1\nfail save C:\\Temp\\A.gif");
    const std::string full = library.objects.createPathHelper()->path("Servo\\A.gif");
    EXPECT_EQ(errorNumber([&] { return library.pictures.load(full); }), 481);
    EXPECT_EQ(errorNumber([&] { return library.files.createFolder("C:\\Temp\\B"), 0; }), 75);
    EXPECT_EQ(errorNumber([&] { return library.files.createFolder("C:\\Temp\\B"), 0; }), 0);
    EXPECT_NE(library.pictures.load("C:\\Temp\\A.gif"), nullptr);
    created("");
    const auto box = replay.host().servo()->inner("ServoMenu")->form().find({"BildIm", 1});
    EXPECT_EQ(errorNumber([&] { return library.pictures.save(*box, "C:\\Temp\\A.gif"), 0; }), 75);
    EXPECT_EQ(errorNumber([&] { return library.pictures.save(*box, "C:\\Temp\\B\\A.gif"), 0; }), 0);
}

TEST_F(ReplayTest, SavesAPictureInTheSizeOfItsBox)
{
    replay.run("screen 12 15\npicture C:\\Temp\\A.gif 1 1\ncreate");
    const auto box = replay.host().servo()->inner("ServoMenu")->form().find({"BildIm", 1});
    box->put(names::Width, 8940.0F);
    box->put(names::Height, 2685.0F);
    fake.library->pictures.save(*box, "C:\\Temp\\B.gif");
    EXPECT_EQ(replay.host().project().loadPicture("C:\\Temp\\B.gif").width, 745);
    EXPECT_EQ(replay.host().project().loadPicture("C:\\Temp\\B.gif").height, 179);
}

TEST_F(ReplayTest, SetsTheSurroundings)
{
    replay.run("library Servo2\nscreen 12 11\nenv TEMPVELM=D:\\Temp files\nenv EMPTY=\ninput 0");
    auto& surroundings = fake.library->surroundings;
    EXPECT_EQ(surroundings.libraryName(), "Servo2");
    EXPECT_EQ(surroundings.twipsPerPixelX(), 12);
    EXPECT_EQ(surroundings.twipsPerPixelY(), 11);
    EXPECT_EQ(surroundings.environment("TEMPVELM").text, "D:\\Temp files");
    EXPECT_EQ(surroundings.environment("EMPTY").state, platform::EnvironmentValue::State::Present);
    EXPECT_EQ(surroundings.environment("OTHER").state, platform::EnvironmentValue::State::Missing);
    EXPECT_EQ(fake.library->objects.createPathHelper()->inputPermission(), 0);
}

TEST_F(ReplayTest, DropsOnePairOfQuotesAroundALanguageText)
{
    replay.run(
        "text A = \"x \"\"y\"\"\"\ntext B = plain = text\ntext C =\ntext \"D E\" = \"\"\ntext F = x \n");
    EXPECT_EQ(replay.host().world().texts["A"], "x \"\"y\"\"");
    EXPECT_EQ(replay.host().world().texts["B"], "plain = text");
    EXPECT_EQ(replay.host().world().texts["C"], "");
    EXPECT_EQ(replay.host().world().texts["D E"], "");
    EXPECT_EQ(replay.host().world().texts["F"], "x ");
}

TEST_F(ReplayTest, ReplacesAFileAndKeepsItsLinesAsTheyStand)
{
    replay.run("file A.ini\n[A]\n  # no comment = 1\n\nend\n");
    const std::string path = fake.library->objects.createPathHelper()->path("A.ini");
    EXPECT_EQ(fake.library->files.openText(path).text, "[A]\n  # no comment = 1\n\n");
    replay.run("file A.ini\n[B]\n  end\n");
    EXPECT_EQ(fake.library->files.openText(path).text, "[B]\n");
}

TEST_F(ReplayTest, MakesRowsOfAnyValues)
{
    replay.run("db S.mdb M1 A \"x\" -1 2.5 \"\" true [1]\ndb S.mdb 2 B 1 0 0 0 0 0\ndb S.mdb delete A \"x\"");
    const std::string path = fake.library->objects.createPathHelper()->path("S.mdb");
    EXPECT_TRUE(fake.library->files.exists(path));
    const auto rows = fake.library->objects.createDBEngine()->open(path)->openRecordSet("PRESET_DEFS");
    EXPECT_EQ(rows->field("machine_type"), basic::Variant{"2"});
    rows->moveNext();
    EXPECT_TRUE(rows->atEnd());
    EXPECT_EQ(problemOf("db S.mdb delete A \"x\""), "1: there is no such row in S.mdb");
    replay.run("db S.mdb empty");
    EXPECT_TRUE(fake.library->objects.createDBEngine()->open(path)->openRecordSet("PRESET_DEFS")->atEnd());
}

TEST_F(ReplayTest, TellsStateByObjectAndId)
{
    created(
        "get Servo.Visible\nget Header.Left\nget ServoMain.SollwertL(5).21\nget ServoMain.SollwertL(5).-513\n"
        "get ServoMain.SollwertL(5).Font.Size\nget ServoMain.Eingabemaske.0x68030001\n"
        "get ServoMain.Picture\nget ErrorDisplay.Last\nget ServoMain.SollwertL(5).0x80010007");
    EXPECT_EQ(replay.lines("state"),
        "state Servo.Visible = true\n"
        "state Header.Left = 0\n"
        "state ServoMain.SollwertL(5).21 = \"100\"\n"
        "state ServoMain.SollwertL(5).-513 = 0\n"
        "state ServoMain.SollwertL(5).Font.Size = 0\n"
        "state ServoMain.Eingabemaske.0x68030001 = <none>\n"
        "state ServoMain.Picture = <none>\n"
        "state ErrorDisplay.Last = \"\"\n"
        "state ServoMain.SollwertL(5).0x80010007 = true\n");
}

TEST_F(ReplayTest, TellsTheTargetOfTheMaskByName)
{
    openMask();
    created("get ServoMain.Eingabemaske.0x68030001");
    EXPECT_EQ(replay.lines("state"), "state ServoMain.Eingabemaske.0x68030001 = ServoMain.SollwertL(5)\n");
}

TEST_F(ReplayTest, SaysWhenThereIsNoSuchState)
{
    EXPECT_EQ(replay.run("get Servo.Height"), "> get Servo.Height\nstate Servo.Height failed\n");
    created("get Other.Left\nget ServoMain.SollwertL(99).8\nget Header.Wert\nget ServoMain.Fußzeile.5(1)");
    EXPECT_EQ(replay.lines("state"),
        "state Other.Left failed\n"
        "state ServoMain.SollwertL(99).8 = empty\n"
        "state Header.Wert failed\n"
        "state ServoMain.Fußzeile.5(1) failed\n");
}

TEST_F(ReplayTest, KeepsTheLastReport)
{
    fake.library->objects.createErrorDisplay()->ErrMessage(13, "Servo", "Type mismatch", "###Ma WerteLesen");
    replay.run("get ErrorDisplay.Last");
    EXPECT_EQ(replay.lines("state"), "state ErrorDisplay.Last = \"###Ma WerteLesen\"\n");
}

TEST_F(ReplayTest, RefusesAProjectFolderThatIsNotThere)
{
    EXPECT_NE(problemOf("project /no/such/folder").find("1: "), std::string::npos);
}

} // namespace

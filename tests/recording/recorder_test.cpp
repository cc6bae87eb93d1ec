#include "recording/trace/recorder.h"

#include "platform/ids.h"
#include "recording/trace/recorded_child.h"

#include "support/error_number.h"
#include "support/fake_control.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace {

using namespace servopanel;
using namespace servopanel::recording;
using servopanel::testing::errorNumber;
using servopanel::testing::FakeControl;
using servopanel::testing::FakePlatform;
using servopanel::testing::FakeRow;

class SilentDisplay final : public platform::ErrorDisplay {
public:
    void ErrMessage(std::int32_t, std::string_view, std::string_view, std::string_view) override { }
    void CloseMe() override { }
};

// The fake surroundings with a display and a pump of their own.
class World final : public platform::LateObjects, public platform::Surroundings {
public:
    FakePlatform fake;
    std::function<void()> onPump;

    platform::LibraryPlatform library()
    {
        const platform::LibraryPlatform all = fake.library();
        return {*this, all.messages, all.profile, all.files, *this, all.pictures};
    }

    std::shared_ptr<platform::ProcessVarAccess> createProcessVarAccess() override
    {
        return fake.createProcessVarAccess();
    }
    std::shared_ptr<platform::PathHelper> createPathHelper() override { return fake.createPathHelper(); }
    std::shared_ptr<platform::ErrorDisplay> createErrorDisplay() override
    {
        return std::make_shared<SilentDisplay>();
    }
    std::shared_ptr<platform::DBEngine> createDBEngine() override { return fake.createDBEngine(); }

    platform::EnvironmentValue environment(std::string_view name) override { return fake.environment(name); }
    std::string libraryName() override { return fake.libraryName(); }
    float twipsPerPixelX() override { return fake.twipsPerPixelX(); }
    float twipsPerPixelY() override { return fake.twipsPerPixelY(); }
    void letEventsRun() override { onPump(); }
};

struct RecorderTest : ::testing::Test {
    std::string written;
    World inner;
    TraceSink sink{[this](std::string_view lines) { written += lines; }};
    Recorder recorder{inner.library(), sink};
    platform::LibraryPlatform library = recorder.platform();

    std::string full(std::string_view name) { return library.objects.createPathHelper()->path(name); }
};

TEST_F(RecorderTest, WritesReadsWithWhatTheyFound)
{
    const auto variables = library.objects.createProcessVarAccess();
    inner.fake.world.variables["A"] = basic::doubles({1, 2.5});
    EXPECT_EQ(variables->ReadValue("A"), basic::doubles({1, 2.5}));
    EXPECT_NE(errorNumber([&] { return variables->ReadValue("B"); }), 0);
    EXPECT_EQ(written, "read A = [1, 2.5]\nread B failed\n");
}

TEST_F(RecorderTest, WritesWhatIsWritten)
{
    const auto variables = library.objects.createProcessVarAccess();
    variables->WriteValue("A", std::int16_t{1});
    inner.fake.world.fail("write A");
    EXPECT_NE(errorNumber([&] { return variables->WriteValue("A", std::int16_t{2}), 0; }), 0);
    EXPECT_EQ(written, "write A = 1\nwrite A failed\n");
    EXPECT_EQ(inner.fake.world.variables["A"], basic::Variant{std::int16_t{1}});
}

TEST_F(RecorderTest, PassesTheFailureOfMakingAnObjectOn)
{
    inner.fake.world.fail("create ProcessVarAccess", 1);
    EXPECT_NE(errorNumber([&] { return library.objects.createProcessVarAccess(); }), 0);
    EXPECT_NE(library.objects.createProcessVarAccess(), nullptr);
    EXPECT_EQ(written, "");
}

TEST_F(RecorderTest, WritesFilesByTheNamesThatTheLibraryBuilt)
{
    inner.fake.world.texts["P:\\Servo\\Servo.ini"] = {"[A]", std::nullopt};
    const std::string path = full("Servo\\Servo.ini");
    EXPECT_EQ(library.files.openText(path).text, "[A]");
    library.files.closeText();
    EXPECT_EQ(errorNumber([&] { return library.files.openText(full("Servo\\No.ini")).text; }), 53);
    library.files.writeText(path, {});
    EXPECT_EQ(written,
        "ini open Servo\\Servo.ini\n"
        "ini close\n"
        "ini open Servo\\No.ini failed\n"
        "ini write Servo\\Servo.ini\n");
}

TEST_F(RecorderTest, WritesSingleLookUps)
{
    inner.fake.world.profiles["P:\\Parameter\\Program.ini"] = {{"[1Machine] Servo1", "3"}};
    const std::string path = full("Parameter\\Program.ini");
    EXPECT_EQ(library.profile.text(path, "1Machine", "Servo1"), "3");
    EXPECT_EQ(library.profile.text(path, "Project", "ServoWithMenu"), std::nullopt);
    EXPECT_EQ(written,
        "profile Parameter\\Program.ini [1Machine] Servo1 = \"3\"\n"
        "profile Parameter\\Program.ini [Project] ServoWithMenu = \"\"\n");
}

TEST_F(RecorderTest, WritesWhetherFilesExistAndFoldersThatAreMade)
{
    inner.fake.world.existing = {"P:\\Servo\\A.gif"};
    EXPECT_TRUE(library.files.exists(full("Servo\\A.gif")));
    EXPECT_FALSE(library.files.exists("C:\\Temp\\Velmora"));
    library.files.createFolder("C:\\Temp\\Velmora");
    inner.fake.world.fail("mkdir C:\\Temp\\Velmora");
    EXPECT_NE(errorNumber([&] { return library.files.createFolder("C:\\Temp\\Velmora"), 0; }), 0);
    EXPECT_EQ(written,
        "exists Servo\\A.gif yes\n"
        "exists C:\\Temp\\Velmora no\n"
        "mkdir C:\\Temp\\Velmora\n"
        "mkdir C:\\Temp\\Velmora\n");
}

TEST_F(RecorderTest, WritesPicturesThatAreLoadedAndThoseThatAreMissing)
{
    const auto picture = std::make_shared<basic::Object>();
    inner.fake.world.pictures["P:\\Servo\\A.gif"] = picture;
    EXPECT_EQ(library.pictures.load(full("Servo\\A.gif")), picture);
    EXPECT_EQ(errorNumber([&] { return library.pictures.load(full("Servo\\B.gif")); }), 53);
    EXPECT_EQ(written, "picture Servo\\A.gif\npicture Servo\\B.gif missing\n");
}

TEST_F(RecorderTest, WritesTheBoxWhosePictureIsSaved)
{
    const auto box = std::make_shared<FakeControl>("PictureBox");
    RecordedChild recorded{box, "ServoMenu.TempPicZiel", recorder.paths(), sink};
    library.pictures.save(recorded, "C:\\Temp\\Velmora\\Servo\\A.gif");
    EXPECT_EQ(written, "save ServoMenu.TempPicZiel C:\\Temp\\Velmora\\Servo\\A.gif\n");
    EXPECT_EQ(inner.fake.world.log.back(), "save C:\\Temp\\Velmora\\Servo\\A.gif");
}

TEST_F(RecorderTest, WritesThePumpBeforeWhatRunsInIt)
{
    inner.onPump = [&] { sink.line("> scroll 2"); };
    library.surroundings.letEventsRun();
    EXPECT_EQ(written, "pump\n> scroll 2\n");
}

TEST_F(RecorderTest, WritesNothingForTheOtherSurroundings)
{
    EXPECT_EQ(library.surroundings.libraryName(), "Servo");
    EXPECT_EQ(library.surroundings.twipsPerPixelX(), 15);
    library.surroundings.environment("TEMPVELM");
    EXPECT_EQ(library.objects.createPathHelper()->inputPermission(), -1);
    EXPECT_EQ(written, "");
}

TEST_F(RecorderTest, WritesMessagesWithoutTheProjectsPlace)
{
    full("Servo\\A.gif");
    library.messages.show("Picture 'P:\\Servo\\A.gif' can not be loaded !");
    EXPECT_EQ(written, "message \"Picture '<project>\\Servo\\A.gif' can not be loaded !\"\n");
    EXPECT_EQ(inner.fake.shown, std::vector<std::string>{"Picture 'P:\\Servo\\A.gif' can not be loaded !"});
}

TEST_F(RecorderTest, WritesReportsByTheProcedureAtTheirEnd)
{
    const auto display = library.objects.createErrorDisplay();
    display->ErrMessage(13, "Servo", "Type mismatch", "###U:### ###B:false### ###F:0###Ma WerteLesen");
    display->ErrMessage(-2147467259, "Servo", "a \"b\"", "no marks");
    display->CloseMe();
    EXPECT_EQ(written,
        "error 13 \"Ma WerteLesen\" \"Type mismatch\"\n"
        "error -2147467259 \"no marks\" \"a \"\"b\"\"\"\n"
        "closeme\n");
}

TEST_F(RecorderTest, WritesTheScreensThatAreOpened)
{
    library.objects.createPathHelper()->openScreen(1311);
    EXPECT_EQ(written, "screen 1311\n");
}

TEST_F(RecorderTest, WritesTheRowsThatAreTakenAndUpdated)
{
    inner.fake.tables["P:\\Servo\\Servo.mdb"].rows = {
        FakeRow{1, {{"VAR_NAME", basic::Variant{"A"}}, {"OFFSET_OR_BITNO", basic::Variant{std::int16_t{7}}}}},
        FakeRow{2, {{"VAR_NAME", basic::Variant{"B"}}}}};
    const auto engine = library.objects.createDBEngine();
    const auto database = engine->open(full("Servo\\Servo.mdb"));
    const auto rows = database->openRecordSet("SELECT PRESET_DEFS.* FROM PRESET_DEFS");
    EXPECT_EQ(rows->field("var_name"), basic::Variant{"A"});
    const basic::Variant bookmark = rows->bookmark();
    rows->moveNext();
    rows->bookmark();
    rows->moveTo(bookmark);
    rows->edit();
    rows->setField("Pass", std::int16_t{3});
    rows->update();
    rows->moveNext();
    rows->moveNext();
    EXPECT_NE(errorNumber([&] { return rows->update(), 0; }), 0);
    database->close();
    EXPECT_NE(errorNumber([&] { return engine->open(full("Servo\\No.mdb")); }), 0);
    EXPECT_EQ(written,
        "db open Servo\\Servo.mdb\n"
        "db row A 7\n"
        "db row B ?\n"
        "db update A 7\n"
        "db close\n"
        "db open Servo\\No.mdb failed\n");
}

// The parts of one control's platform; every call only says that it came.
class FakeParts : public platform::Form, public platform::Surface, public platform::Owner {
public:
    std::string calls;
    std::shared_ptr<FakeControl> control = std::make_shared<FakeControl>("PictureBox");
    std::function<void()> onRaise;

    platform::ControlRef child(platform::ChildId) override { return control; }
    void load(platform::ChildId) override { calls += "load "; }
    float textWidth(platform::ChildId, std::string_view) override { return 70; }
    basic::Variant get(const platform::Member&) override { return 15360.0F; }
    void put(const platform::Member&, const basic::Variant&) override { calls += "put "; }
    void line(platform::ChildId, float, float, float, float, std::int32_t, std::int16_t) override
    {
        calls += "line ";
    }
    void clear(platform::ChildId) override { calls += "clear "; }
    void refresh(platform::ChildId) override { calls += "refresh "; }
    void bitBlt(
        platform::ChildId, platform::ChildId, std::int32_t, std::int32_t, std::int32_t, std::int32_t) override
    {
        calls += "bitBlt ";
    }
    void stretchBlt(
        platform::ChildId, platform::ChildId, std::int32_t, std::int32_t, std::int32_t, std::int32_t) override
    {
        calls += "stretchBlt ";
    }
    void raise(std::string_view, platform::Args) override
    {
        if (onRaise) onRaise();
    }
};

struct RecordedControlTest : RecorderTest {
    FakeParts parts;
    std::unique_ptr<RecordedControl> recorded = recorder.control("ServoMenu", {parts, parts, parts});
    platform::ControlPlatform control = recorded->platform();
};

TEST_F(RecordedControlTest, NamesChildrenByOwnerNameAndIndex)
{
    control.form.child({"BildIm", 3})->put(platform::names::Visible, true);
    control.form.load({"Beschriftung", 2});
    EXPECT_EQ(control.form.textWidth({"Beschriftung", 2}, "x"), 70);
    EXPECT_EQ(written, "put ServoMenu.BildIm(3).Visible = true\nload ServoMenu.Beschriftung(2)\n");
    EXPECT_EQ(parts.calls, "load ");
}

TEST_F(RecordedControlTest, WritesWhatIsSetOnTheControlItself)
{
    EXPECT_EQ(control.surface.get(platform::names::Height), basic::Variant{15360.0F});
    control.surface.put(platform::names::Height, 15360.0F);
    control.surface.put(platform::names::Picture, basic::ObjectRef{});
    EXPECT_EQ(written, "put ServoMenu.Height = 15360\nput ServoMenu.Picture = <none>\n");
}

TEST_F(RecordedControlTest, WritesWhatIsDrawn)
{
    control.surface.line({}, 105, 2340, 9120.5F, 2340, 0xFFFFFF, 6);
    control.surface.line({"MainBereich", 1}, 0, -30, 9015, 510, 0xC0C0C0, 38);
    control.surface.clear({"TempPicZwischen"});
    control.surface.refresh({"TempPicZwischen"});
    control.surface.bitBlt({"TempPicQuelle"}, {"TempPicZwischen"}, -1, 2, 30, 40);
    control.surface.stretchBlt({"TempPicZwischen"}, {"TempPicZiel"}, 50, 60, 70, 80);
    EXPECT_EQ(written,
        "line ServoMenu (105,2340)-(9120.5,2340) FFFFFF 6\n"
        "line ServoMenu.MainBereich(1) (0,-30)-(9015,510) C0C0C0 38\n"
        "call ServoMenu.TempPicZwischen.Cls()\n"
        "call ServoMenu.TempPicZwischen.Refresh()\n"
        "bitblt ServoMenu.TempPicQuelle ServoMenu.TempPicZwischen -1 2 30 40\n"
        "stretch ServoMenu.TempPicZwischen ServoMenu.TempPicZiel 70 80\n");
    EXPECT_EQ(parts.calls, "line line clear refresh bitBlt stretchBlt ");
}

TEST_F(RecordedControlTest, WritesAnEventBeforeItsHandlerRuns)
{
    parts.onRaise = [&] { sink.line("handler"); };
    const basic::Variant args[]{std::int16_t{6}};
    control.owner.raise("ServoBildAufrufen", args);
    control.owner.raise("JetztAnzeigen", {});
    EXPECT_EQ(written,
        "raise ServoMenu.ServoBildAufrufen(6)\nhandler\n"
        "raise ServoMenu.JetztAnzeigen()\nhandler\n");
}

} // namespace

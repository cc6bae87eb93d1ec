#include "portable/path_mapping.h"

#include "basic/error.h"
#include "portable/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>

namespace {

namespace fs = std::filesystem;
using servopanel::portable::PathMapping;
using servopanel::tests::EnvironmentVariable;
using servopanel::tests::TemporaryFolder;

// The system's temporary folder is moved away from the project, so that nothing is permitted by chance.
class PathMappingTest : public testing::Test {
protected:
    std::string refusal(std::string_view name) const
    {
        try {
            return "not refused: " + mapping.resolve(name).string();
        } catch (const servopanel::basic::Error& error) {
            EXPECT_EQ(error.number, 76);
            EXPECT_NE(error.description.find(name), std::string::npos) << error.description;
            return "refused";
        }
    }

    TemporaryFolder outside;
    TemporaryFolder project;
    TemporaryFolder temporary;
    EnvironmentVariable temporaryFolder{"TMPDIR", temporary.path().c_str()};
    fs::path root = fs::canonical(project.path());
    PathMapping mapping{project.path()};
};

TEST_F(PathMappingTest, FindsFilesWithoutRegardToCase)
{
    const fs::path file = project.file("Servo/Bilder/Größe_1.GIF");
    EXPECT_EQ(mapping.resolve("Servo\\Bilder\\Größe_1.GIF"), file);
    EXPECT_EQ(mapping.resolve("sERVO\\bILDER\\GRÖßE_1.gif"), file);
    EXPECT_EQ(mapping.find("servo/bilder/größe_1.gif"), file);
}

TEST_F(PathMappingTest, PrefersTheExactNameThenTheFirstByBytes)
{
    const fs::path lower = project.file("x.gif");
    const fs::path upper = project.file("X.GIF");
    EXPECT_EQ(mapping.resolve("x.gif"), lower);
    EXPECT_EQ(mapping.resolve("X.GIF"), upper);
    EXPECT_EQ(mapping.resolve("X.gif"), upper);
}

TEST_F(PathMappingTest, FindsNamesThatAnOldSystemWroteInWindows1252)
{
    const fs::path file = project.file("Schl\xFCssel.gif");
    EXPECT_EQ(mapping.resolve("SCHLÜSSEL.GIF"), file);
}

TEST_F(PathMappingTest, KeepsTheCaseOfWhatDoesNotExist)
{
    project.folder("Servo");
    EXPECT_EQ(mapping.resolve("SERVO\\Neu\\Datei.INI"), root / "Servo/Neu/Datei.INI");
    EXPECT_FALSE(mapping.find("SERVO\\Neu\\Datei.INI"));
}

TEST_F(PathMappingTest, FullNamesNameTheRealPlaceAndLeadBackToIt)
{
    const fs::path file = project.file("Servo/Servo.ini");
    std::string expected = (root / "servo" / "SERVO.ini").string();
    std::replace(expected.begin(), expected.end(), '/', '\\');
    EXPECT_EQ(mapping.fullName("servo\\SERVO.ini"), expected);
    EXPECT_EQ(mapping.fullName("servo/SERVO.ini"), expected);
    EXPECT_EQ(mapping.resolve(mapping.fullName("servo\\SERVO.ini")), file);
    EXPECT_EQ(mapping.resolve(mapping.fullName("")), root);
}

TEST_F(PathMappingTest, AbsoluteNamesStayAsTheyAre)
{
    for (const char* name : {"C:\\Temp\\x.bmp", "D:/x", "\\x\\y", "/x/y", "c:"})
        EXPECT_EQ(mapping.fullName(name), name);
}

TEST_F(PathMappingTest, DotsMayMoveInsideTheProject)
{
    const fs::path file = project.file("Parameter/Program.ini");
    EXPECT_EQ(mapping.resolve("Servo\\..\\.\\Parameter\\\\Program.ini"), file);
}

TEST_F(PathMappingTest, RefusesToLeaveTheProject)
{
    for (const char* name : {"..\\x", "Servo\\..\\..\\x", "Servo/../../x", "/etc/passwd", "\\etc\\passwd",
             "C:\\Windows\\x.ini", "D:\\x", "C:", "C:\\", "C:Temp\\x", "\\\\server\\share\\x",
             "//server/share/x", "Servo\\C:\\x", "x:y:z", "a\tb", "C:\\..\\Temp"})
        EXPECT_EQ(refusal(name), "refused") << name;
    EXPECT_EQ(refusal(mapping.fullName("..\\x")), "refused");
    EXPECT_EQ(refusal(root.string() + "2/x"), "refused");
}

TEST_F(PathMappingTest, RefusesLinksThatLeadOut)
{
    outside.file("secret/key");
    fs::create_symlink(outside.path() / "secret", root / "folder");
    fs::create_symlink(outside.path() / "secret/key", root / "file");
    fs::create_symlink(outside.path() / "later", root / "dangling");
    fs::create_symlink("loop", root / "loop");
    for (const char* name :
        {"folder\\key", "FOLDER\\key", "folder\\new", "file", "dangling", "loop", "loop\\x"})
        EXPECT_EQ(refusal(name), "refused") << name;
    EXPECT_FALSE(mapping.find("file"));
}

TEST_F(PathMappingTest, FollowsLinksThatStayInside)
{
    const fs::path file = project.file("Servo/x.gif");
    fs::create_directory_symlink("Servo", root / "Bilder");
    fs::create_directory_symlink(fs::canonical(temporary.path()), root / "Ablage");
    EXPECT_EQ(mapping.resolve("BILDER\\X.gif"), file);
    EXPECT_EQ(mapping.resolve("ablage\\neu"), fs::canonical(temporary.path()) / "neu");
}

TEST_F(PathMappingTest, ClimbingOutOfALinkGoesBackToWhereTheLinkIs)
{
    fs::create_directory_symlink(fs::canonical(temporary.path()), root / "Ablage");
    EXPECT_EQ(mapping.resolve("Ablage\\..\\x"), root / "x");
}

TEST_F(PathMappingTest, MapsTheTemporaryFolder)
{
    const fs::path there = fs::canonical(temporary.path());
    EXPECT_EQ(mapping.resolve("C:\\Temp\\Ordner\\1.bmp"), there / "Ordner/1.bmp");
    EXPECT_EQ(mapping.resolve("c:/TEMP"), there);
    EXPECT_EQ(mapping.resolve((temporary.path() / "x").string()), there / "x");
    EXPECT_EQ(refusal("C:\\Temp\\..\\x"), "refused");
    EXPECT_EQ(refusal("C:\\Temporary\\x"), "refused");
    fs::create_symlink(outside.path(), there / "out");
    EXPECT_EQ(refusal("C:\\Temp\\out\\x"), "refused");
}

TEST_F(PathMappingTest, TakesTheLongestMappedName)
{
    const fs::path drive = outside.folder("drive");
    const fs::path deep = outside.folder("deep");
    mapping.mapFolder("d:", drive);
    mapping.mapFolder("D:\\Daten\\Bilder", deep);
    EXPECT_EQ(mapping.resolve("D:\\Daten\\x"), drive / "Daten/x");
    EXPECT_EQ(mapping.resolve("d:\\DATEN\\bilder\\x"), deep / "x");
    mapping.mapFolder("d:\\daten\\BILDER", drive);
    EXPECT_EQ(mapping.resolve("D:\\Daten\\Bilder\\x"), drive / "x");
}

TEST_F(PathMappingTest, MapsOnlyAbsoluteNamesToFoldersThatExist)
{
    EXPECT_THROW(mapping.mapFolder("Servo", outside.path()), servopanel::basic::Error);
    EXPECT_THROW(mapping.mapFolder("D:", outside.path() / "missing"), servopanel::basic::Error);
    EXPECT_THROW(mapping.mapFolder("D:", outside.file("file")), servopanel::basic::Error);
    EXPECT_THROW(PathMapping{outside.path() / "missing"}, servopanel::basic::Error);
}

TEST_F(PathMappingTest, TakesTheTemporaryFolderOfTheEnvironment)
{
    const fs::path own = outside.folder("own");
    mapping.mapTemporaryFolder(own.string());
    EXPECT_EQ(mapping.resolve(own.string() + "\\x"), own / "x");

    mapping.mapTemporaryFolder("E:\\HMI\\Tmp");
    EXPECT_EQ(mapping.resolve("e:\\hmi\\tmp\\x"), fs::canonical(temporary.path()) / "x");
    EXPECT_EQ(refusal("E:\\HMI\\x"), "refused");
}

TEST_F(PathMappingTest, TakesNoUselessTemporaryFolder)
{
    const fs::path before = fs::current_path();
    fs::current_path(outside.folder("empty"));
    const std::string below = (outside.file("file") / "below").string();
    for (const std::string& name :
        {std::string{}, std::string{"/"}, std::string{"\\"}, std::string{"//"}, std::string{"relative"},
            std::string{"C:x"}, std::string{"C:\\Temp"}, std::string{"\\\\server\\x"}, below})
        EXPECT_NO_THROW(mapping.mapTemporaryFolder(name)) << name;
    EXPECT_TRUE(fs::is_empty(".")) << "nothing is made that nobody uses";
    fs::current_path(before);
    EXPECT_EQ(refusal("/etc/passwd"), "refused");
    EXPECT_EQ(refusal(below + "/x"), "refused");
}

TEST_F(PathMappingTest, MakesTheTemporaryFolderWhereItIsMissing)
{
    const fs::path own = fs::canonical(outside.path()) / "new" / "folder";
    mapping.mapTemporaryFolder(own.string());
    EXPECT_TRUE(fs::is_directory(own));
    EXPECT_EQ(mapping.resolve(own.string() + "\\x"), own / "x");
}

TEST_F(PathMappingTest, WorksWithAProjectThatIsReachedThroughALink)
{
    const fs::path file = project.file("x");
    fs::create_directory_symlink(root, outside.path() / "link");
    const PathMapping linked{outside.path() / "link/"};
    EXPECT_EQ(linked.resolve(linked.fullName("X")), file);
    EXPECT_EQ(linked.resolve(file.string()), file);
}

} // namespace

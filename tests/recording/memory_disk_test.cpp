#include "recording/memory/memory_disk.h"

#include "support/error_number.h"

#include <gtest/gtest.h>

namespace {

using servopanel::recording::MemoryDisk;
using servopanel::testing::errorNumber;

TEST(MemoryDisk, FindsFilesWithoutRegardToCase)
{
    MemoryDisk disk;
    disk.putText("C:\\Projekt\\Servo\\Servo.ini", "[A]\r\nx=1");
    EXPECT_TRUE(disk.exists("c:\\projekt\\SERVO\\servo.INI"));
    EXPECT_EQ(disk.openText("C:/Projekt/Servo/Servo.ini").text, "[A]\r\nx=1");
    EXPECT_FALSE(disk.exists("C:\\Projekt\\Servo\\Servo.mdb"));
}

TEST(MemoryDisk, HasTheFoldersOfItsFilesAndEveryDriveRoot)
{
    MemoryDisk disk;
    disk.putPicture("C:\\Projekt\\Servo\\A.gif", {1, 1});
    EXPECT_TRUE(disk.exists("C:\\Projekt\\Servo"));
    EXPECT_TRUE(disk.exists("C:\\Projekt\\"));
    EXPECT_TRUE(disk.exists("Z:\\"));
    EXPECT_FALSE(disk.exists("C:\\Temp"));
}

TEST(MemoryDisk, MakesAFolderOnlyInOneThatIsThere)
{
    MemoryDisk disk;
    EXPECT_EQ(errorNumber([&] { return disk.createFolder("C:\\Temp\\Velmora"), 0; }), 76);
    disk.createFolder("C:\\Temp");
    disk.createFolder("C:\\Temp\\Velmora");
    EXPECT_TRUE(disk.exists("C:\\Temp\\Velmora"));
    EXPECT_EQ(errorNumber([&] { return disk.createFolder("C:\\Temp"), 0; }), 75);
}

TEST(MemoryDisk, TellsAMissingFileFromAMissingFolder)
{
    MemoryDisk disk;
    disk.putText("C:\\Projekt\\A.ini", {});
    EXPECT_EQ(errorNumber([&] { return disk.openText("C:\\Projekt\\B.ini").text; }), 53);
    EXPECT_EQ(errorNumber([&] { return disk.openText("C:\\Projekt\\B\\B.ini").text; }), 76);
}

TEST(MemoryDisk, KeepsPicturesApartFromTexts)
{
    MemoryDisk disk;
    disk.putText("C:\\A.ini", {});
    disk.putPicture("C:\\A.gif", {400, 140});
    disk.putOther("C:\\A.mdb");
    EXPECT_EQ(disk.loadPicture("C:\\A.gif").height, 140);
    EXPECT_EQ(errorNumber([&] { return disk.loadPicture("C:\\A.ini").width; }), 481);
    EXPECT_EQ(errorNumber([&] { return disk.loadPicture("C:\\A.mdb").width; }), 481);
    EXPECT_EQ(errorNumber([&] { return disk.loadPicture("C:\\B.gif").width; }), 53);
    EXPECT_EQ(errorNumber([&] { return disk.openText("C:\\A.gif").text; }), 75);
}

TEST(MemoryDisk, SavesOnlyIntoAFolderThatIsThere)
{
    MemoryDisk disk;
    EXPECT_EQ(errorNumber([&] { return disk.savePicture("C:\\Temp\\A.gif", {1, 1}), 0; }), 76);
    disk.createFolder("C:\\Temp");
    disk.savePicture("C:\\Temp\\A.gif", {7, 8});
    EXPECT_EQ(disk.loadPicture("C:\\Temp\\A.gif").width, 7);
    EXPECT_EQ(errorNumber([&] { return disk.writeText("C:\\No\\A.ini", {}), 0; }), 76);
}

TEST(MemoryDisk, AnswersProfileLookUps)
{
    MemoryDisk disk;
    disk.putText("C:\\Program.ini", "[Project]\nServoWithMenu = TRUE");
    EXPECT_EQ(disk.text("C:\\Program.ini", "project", "servowithmenu"), "TRUE");
    EXPECT_EQ(disk.text("C:\\Program.ini", "Project", "Other"), std::nullopt);
    EXPECT_EQ(disk.text("C:\\Other.ini", "Project", "ServoWithMenu"), std::nullopt);
}

} // namespace

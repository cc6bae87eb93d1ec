#include "recording/trace/path_names.h"

#include <gtest/gtest.h>

namespace {

using servopanel::recording::PathNames;

TEST(PathNames, GivesTheNameThatThePathWasBuiltFrom)
{
    PathNames paths;
    paths.learn("Servo\\Servo.ini", "/srv/line 1\\Servo\\Servo.ini");
    EXPECT_EQ(paths.name("/srv/line 1\\Servo\\Servo.ini"), "Servo\\Servo.ini");
}

TEST(PathNames, ShortensOtherPathsOfTheSameProject)
{
    PathNames paths;
    paths.learn("Servo\\Servo.ini", "D:\\Line\\Servo\\Servo.ini");
    EXPECT_EQ(paths.name("D:\\Line\\Standard\\OK.wmf"), "Standard\\OK.wmf");
}

TEST(PathNames, LeavesPathsFromOutsideTheProject)
{
    PathNames paths;
    EXPECT_EQ(paths.name("C:\\Temp\\Picture.gif"), "C:\\Temp\\Picture.gif");
    paths.learn("Servo\\Servo.ini", "D:\\Line\\Servo\\Servo.ini");
    paths.learn("C:\\Temp\\Picture.gif", "C:\\Temp\\Picture.gif");
    EXPECT_EQ(paths.name("C:\\Temp\\Picture.gif"), "C:\\Temp\\Picture.gif");
    EXPECT_EQ(paths.name("D:\\Line\\A.gif"), "A.gif");
}

TEST(PathNames, HidesTheProjectsFolderInMessages)
{
    PathNames paths;
    EXPECT_EQ(paths.message("File 'D:\\Line\\A.gif'"), "File 'D:\\Line\\A.gif'");
    paths.learn("A.gif", "D:\\Line\\A.gif");
    EXPECT_EQ(paths.message("File 'D:\\Line\\A.gif', not D:\\Line\\B.gif"),
        "File '<project>\\A.gif', not <project>\\B.gif");
}

} // namespace

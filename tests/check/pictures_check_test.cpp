// Pictures that were asked for, in folders of which some cannot be listed.
#include "check/ini_files.h"
#include "check/pictures_check.h"
#include "check/project_copy.h"
#include "jet/in_child.h"

#include <gtest/gtest.h>

namespace servopanel::check::tests {

namespace {

class PicturesCheck : public ::testing::Test {
protected:
    void ask(const std::string& name, int resolution, const std::string& view)
    {
        asked_.pictures[name].add(resolution, view);
    }
    void seek(const std::string& name, int resolution)
    {
        asked_.soughtFiles[name].add(resolution, "the menu of machine M1");
    }
    // The footer key 3 has the pictures "Standard\Pw...", of which there is none.
    void nameFooterPicture()
    {
        folder_.file("Servo/Servo.ini", "[Footer]\nF3=Standard\\Pw\n");
        ask("Standard/Pw1_800.gif", 800, "the menu");
    }
    std::string report()
    {
        CheckedProject project{
            folder_.path(), portable::PathMapping{folder_.path()}, {}, JsonLines{""}, {800, 1024, 1280}, {}};
        Findings findings;
        readIniFiles(project, findings);
        checkPictures(project, asked_, plainReader, findings);
        return findings.text();
    }

    servopanel::tests::TemporaryFolder folder_;
    Asked asked_;
};

constexpr const char* plainShown = "no such picture, while another resolution has it: the menu's key shows "
                                   "the picture of the page instead";
constexpr const char* noneShown = ": its pictures are not shown, and the panel says so";

} // namespace

TEST_F(PicturesCheck, TellsAnOptionalPictureThatOneResolutionLacks)
{
    folder_.file("Servo/Servo_S_M1_1_800.gif");
    folder_.file("Servo/Servo_S_M1_1_1024.gif");
    folder_.file("Servo/Servo_S_M1_2_800.gif");
    for (const char* const servo : {"1", "2", "3"})
        for (const int resolution : {800, 1024, 1280})
            seek(std::string{"Servo/Servo_S_M1_"} + servo + '_' + std::to_string(resolution) + ".gif",
                resolution);
    EXPECT_EQ(report(),
        std::string{"Servo/Servo_S_M1_1_1280.gif: "} + plainShown + " (the menu of machine M1)\n"
            + "Servo/Servo_S_M1_2_*.gif: " + plainShown + "; at 1024 and 1280 (the menu of machine M1)\n");
}

TEST_F(PicturesCheck, TellsAMissingFolderOnce)
{
    nameFooterPicture();
    ask("Standard/OK.wmf", 800, "the page");
    ask("Servo/ServoMain_800.bmp", 800, "the page");
    EXPECT_EQ(report(),
        std::string{"Servo/ServoMain_800.bmp: no such picture: it is not shown, and the panel says so (the "
                    "page)\nStandard: no such folder"}
            + noneShown + " (the page, and 1 more place)\n");
}

TEST_F(PicturesCheck, TellsAFileInThePlaceOfAFolderOnce)
{
    nameFooterPicture();
    folder_.file("Standard");
    EXPECT_EQ(report(), std::string{"Standard: is no folder"} + noneShown + " (the menu)\n");
}

TEST_F(PicturesCheck, TellsAFolderThatIsClosedToUsOnce)
{
    nameFooterPicture();
    folder_.file("Standard/OK.wmf");
    ask("Standard/OK.wmf", 800, "the menu");
    fs::permissions(folder_.path(), fs::perms::all);
    fs::permissions(folder_.path() / "Standard", fs::perms::none);
    EXPECT_TRUE(jet::testing::inChild([&] {
        return jet::testing::becomeAnyUser()
            && report()
            == std::string{"Standard: cannot be read: permission denied"} + noneShown + " (the menu)\n";
    }));
    fs::permissions(folder_.path() / "Standard", fs::perms::owner_all);
}

TEST_F(PicturesCheck, TellsTheEntryOfAFooterPictureInAFolderThatCanBeListed)
{
    nameFooterPicture();
    folder_.file("Standard/OK.wmf");
    EXPECT_EQ(report(),
        "Servo/Servo.ini:2: [Footer] F3 is \"Standard\\Pw\", and there is no picture whose name begins so: "
        "the key stays without one\n");
}

} // namespace servopanel::check::tests

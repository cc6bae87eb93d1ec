// INI files by themselves.
#include "check/ini_files.h"
#include "check/project_copy.h"

#include <gtest/gtest.h>

namespace servopanel::check::tests {

TEST(FooterKeys, OfAMachineThatAreAllMissingAreToldOnce)
{
    const servopanel::tests::TemporaryFolder folder;
    folder.file("Servo/Servo.ini", "[Footer]\nF3=Standard\\Pw\n");
    CheckedProject project{folder.path(), portable::PathMapping{folder.path()}, {}, JsonLines{""}, {}, {}};
    Findings findings;
    readIniFiles(project, findings);
    checkFooterFile(project, 1, findings);
    EXPECT_EQ(findings.text(),
        "Servo/Servo.ini: section [Machine1] is missing: the keys may go by those of another machine\n");
}

} // namespace servopanel::check::tests

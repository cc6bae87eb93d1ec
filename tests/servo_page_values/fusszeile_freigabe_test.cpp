#include "servo_page_values/lone_page.h"
#include "servo_page_values/page.h"

#include <gtest/gtest.h>

#include <string>

namespace servopanel::servo_page::tests {
namespace {

TEST(FußzeileFreigabe, ReleasesTheKeysInUseAndTheExit)
{
    Page page;
    EXPECT_NE(page.start().find(released()), std::string::npos);
}

TEST(FußzeileFreigabe, LeavesKey4Alone)
{
    // The machine configures the key as used; only the page itself offers it.
    Page page;
    page.run("touch SollwertL 5\nmask 55\n");
    const std::string trace = page.run("key 10\n");
    const std::size_t release = trace.find(released());
    ASSERT_NE(release, std::string::npos);
    EXPECT_EQ(holding(trace.substr(0, release + released().size()), "Fußzeile.0x68030004(4"), "");
}

TEST(FußzeileFreigabe, ReleasesKey9WithSeveralMachinesOnly)
{
    Page one;
    EXPECT_EQ(holding(one.start(), "0x68030004(9"), "");
    Page two{"var parameter<.maschinenanzahl> = 2\n"};
    EXPECT_GE(count(two.start(),
                  "read parameter<.maschinenanzahl> = 2\ncall ServoMain.Fußzeile.0x68030004(9, true)\n"
                  "call ServoMain.Fußzeile.0x68030004(10, true)\n"),
        1U);
}

TEST(FußzeileFreigabe, LeavesKey9WhenTheNumberOfMachinesCannotBeRead)
{
    Page page{"var parameter<.maschinenanzahl> = 2\nfail read parameter<.maschinenanzahl>\n"};
    EXPECT_EQ(holding(page.start(), "0x68030004(9"), "");
    EXPECT_GE(count(page.start(), "error -2147467259 \"Ma FußzeileFreigabe\""), 1U);
    EXPECT_GE(count(page.start(), "call ServoMain.Fußzeile.0x68030004(11, true)\n"), 1U);
}

TEST(FußzeileFreigabe, WithdrawsAllKeysSilverAfterSavingTheirSettings)
{
    Page page;
    const std::string trace = page.run("touch SollwertL 5\n");
    EXPECT_EQ(trace.substr(trace.size() - withdrawn().size()), withdrawn());
    for (const char* key : {"1", "3", "6", "10", "11"})
        EXPECT_EQ(
            page.run(std::string{"key "} + key + "\n"), std::string{"> key "} + key + "\nrefused key\n");
    EXPECT_EQ(holding(page.run("key 31\n"), "refused"), "");
}

class FußzeileFreigabeAlone : public testing::LonePage { };

TEST_F(FußzeileFreigabeAlone, ReleasesOnlyTheExitBeforeTheKeysInUseAreKnown)
{
    page.surround.world().variables["parameter<.maschinenanzahl>"] = std::int16_t{1};
    forget("Fußzeile");
    page.control.FußzeileFreigabe(true);
    const auto& calls = page.fake("Fußzeile")->crossings;
    ASSERT_EQ(calls.size(), 1U);
    EXPECT_EQ(calls[0].member.name, "Freigabe");
    EXPECT_EQ(calls[0].args[0], basic::Variant{std::uint8_t{11}});
}

} // namespace
} // namespace servopanel::servo_page::tests

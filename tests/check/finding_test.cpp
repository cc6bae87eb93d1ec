#include "check/finding.h"

#include <gtest/gtest.h>

namespace servopanel::check {

TEST(Findings, AreSortedByFileAndLine)
{
    Findings findings;
    findings.add("b", 3, "two");
    findings.add("b", 1, "three");
    findings.add("a", 0, "one");
    EXPECT_EQ(findings.text(), "a: one\nb:1: three\nb:3: two\n");
    EXPECT_EQ(findings.count(), 3U);
    EXPECT_EQ(findings.files(), 2U);
}

TEST(Findings, TellEqualCausesOnce)
{
    Findings findings;
    for (const int line : {9, 2, 5, 7, 6, 8, 4})
        findings.add("a", line, "wrong");
    EXPECT_EQ(findings.text(), "a:2: wrong; also in lines 4, 5, 6, 7, 8 and 1 more\n");
    EXPECT_EQ(findings.count(), 1U);
}

TEST(Findings, ListResolutionsAndTheFirstPlace)
{
    Findings findings;
    for (const int resolution : {1280, 800})
        for (const char* const place : {"the menu", "the page", "the diagnosis"})
            findings.add({"a_*.gif", 0, "missing", {resolution}, place});
    EXPECT_EQ(findings.text(), "a_*.gif: missing; at 800 and 1280 (the menu, and 2 more places)\n");
}

TEST(Findings, NameTheOneFileOfOneResolution)
{
    Findings findings;
    findings.add({"a_*.gif", 0, "missing", {800}, "the menu"});
    EXPECT_EQ(findings.text(), "a_800.gif: missing (the menu)\n");
}

TEST(Findings, EndAtAHundredOfAFile)
{
    Findings findings;
    for (int i = 1; i <= 150; ++i)
        findings.add("a", i, "wrong " + std::to_string(i));
    findings.add("b", 1, "other");
    const std::string text = findings.text();
    EXPECT_NE(
        text.find("a:100: wrong 100\na: 50 more findings in this file\nb:1: other\n"), std::string::npos);
    EXPECT_EQ(findings.count(), 151U);
}

} // namespace servopanel::check

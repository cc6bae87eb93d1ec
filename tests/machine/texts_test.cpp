#include "machine/texts.h"

#include "portable/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using servopanel::machine::Texts;

TEST(Texts, TakesKeysAndTexts)
{
    const Texts texts = Texts::fromLines(
        {"# head", "", "  Servo.1 =  Länge;mm ", "a = b = c", "Servo.2=", "\tx\t=\ty\t"}, "de.txt");
    EXPECT_EQ(texts.text("Servo.1"), "Länge;mm");
    EXPECT_EQ(texts.text("a"), "b = c");
    ASSERT_NE(texts.find("Servo.2"), nullptr);
    EXPECT_EQ(*texts.find("Servo.2"), "");
    EXPECT_EQ(texts.text("x"), "y");
    EXPECT_EQ(texts.size(), 4U);
    EXPECT_TRUE(texts.problems().empty());
}

TEST(Texts, DropsOnePairOfQuotes)
{
    const Texts texts = Texts::fromLines({"a = \"  b \"", "c = \"\"d\"\"", "e = \"", "f = 'g'"}, "de.txt");
    EXPECT_EQ(texts.text("a"), "  b ");
    EXPECT_EQ(texts.text("c"), "\"d\"");
    EXPECT_EQ(texts.text("e"), "\"");
    EXPECT_EQ(texts.text("f"), "'g'");
}

TEST(Texts, AnUnknownKeyIsNothing)
{
    const Texts texts = Texts::fromLines({"a = b", "#c = d"}, "de.txt");
    EXPECT_EQ(texts.find("A"), nullptr);
    EXPECT_EQ(texts.text("A"), "");
    EXPECT_EQ(texts.find("#c"), nullptr);
}

TEST(Texts, ListsWhatIsWrongAndGoesOn)
{
    const Texts texts = Texts::fromLines({"a = 1", "nonsense", " = x", "a = 2"}, "de.txt");
    EXPECT_EQ(texts.text("a"), "2");
    ASSERT_EQ(texts.problems().size(), 3U);
    EXPECT_EQ(texts.problems()[0].text(), "de.txt: line 2: no \"=\"; a line is \"key = text\"");
    EXPECT_EQ(texts.problems()[1].text(), "de.txt: line 3: no key before \"=\"");
    EXPECT_EQ(
        texts.problems()[2].text(), "de.txt: line 4: the key \"a\" stands here again; this text counts");
}

TEST(Texts, ReadsFilesOfBothGenerations)
{
    const servopanel::tests::TemporaryFolder folder;
    EXPECT_EQ(Texts::load(folder.file("de.txt", "a = L\xE4nge\r\n")).text("a"), "Länge");
    EXPECT_EQ(Texts::load(folder.file("en.txt",
                              "\xEF\xBB\xBF"
                              "a = Länge\n"))
                  .text("a"),
        "Länge");
    const Texts missing = Texts::load(folder.path() / "fr.txt");
    EXPECT_EQ(missing.size(), 0U);
    ASSERT_EQ(missing.problems().size(), 1U);
    EXPECT_NE(missing.problems()[0].text().find("there is no such file"), std::string::npos);
}

TEST(Texts, NamesTheLineThatIsInAnotherEncodingAndKeepsItsText)
{
    const servopanel::tests::TemporaryFolder folder;
    const Texts texts = Texts::load(folder.file("de.txt",
        "a = Länge\nb = K\xFCrze\nc = Gr\xF6\xDF"
        "e\nd = Höhe\n"));
    EXPECT_EQ(texts.text("a"), "Länge");
    EXPECT_EQ(texts.text("b"), "Kürze");
    EXPECT_EQ(texts.text("c"), "Größe");
    EXPECT_EQ(texts.text("d"), "Höhe");
    ASSERT_EQ(texts.problems().size(), 1U);
    EXPECT_EQ(texts.problems()[0].text(),
        "de.txt: line 2: is not in UTF-8; read as Windows-1252, like 1 more; save the file as UTF-8");
}

TEST(Texts, ReadsUtf16ThatSaysSo)
{
    using namespace std::string_literals;
    const servopanel::tests::TemporaryFolder folder;
    const Texts little = Texts::load(folder.file("ar.txt",
        "\xFF\xFE"
        "a\0=\0\x34\x06\x2F\x06\r\0\n\0b\0=\0\x3D\xD8\x00\xDE"s));
    EXPECT_EQ(little.text("a"), "شد");
    EXPECT_EQ(little.text("b"), "😀");
    EXPECT_TRUE(little.problems().empty());
    const Texts big = Texts::load(folder.file("zh.txt", "\xFE\xFF\0a\0=\x5F\x20"s));
    EXPECT_EQ(big.text("a"), "张");
    EXPECT_TRUE(big.problems().empty());
}

TEST(Texts, ReportsUtf16WithoutAMark)
{
    using namespace std::string_literals;
    const servopanel::tests::TemporaryFolder folder;
    const Texts texts = Texts::load(folder.file("en.txt", "a\0=\0b\0\n\0"s));
    ASSERT_FALSE(texts.problems().empty());
    EXPECT_NE(
        texts.problems()[0].text().find("en.txt: line 1: has characters of the number 0"), std::string::npos);
}

TEST(Texts, KeepsALongText)
{
    const std::string text(10'000, 'x');
    EXPECT_EQ(Texts::fromLines({"a = " + text}, "en.txt").text("a"), text);
}

} // namespace

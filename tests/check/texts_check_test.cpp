// Texts of a second and a third language, and keys that nobody asks for.
#include "check/places_check.h"
#include "check/project_copy.h"
#include "check/texts_check.h"
#include "machine/panel_words.h"
#include "support/standard_project.h"

#include <gtest/gtest.h>

namespace servopanel::check::tests {

namespace {

// The demonstration with one servo of one machine and two languages: the panel has words in English and none in Polish.
class TextsOfTwoLanguages : public ::testing::Test {
protected:
    TextsOfTwoLanguages()
    {
        copy_.replace(
            "project.json", "\"parameter<.maschinenanzahl>\": 2", "\"parameter<.maschinenanzahl>\": 1");
        copy_.replace(
            "project.json", "\"parameter<.servo_anzahl_1>\": 12", "\"parameter<.servo_anzahl_1>\": 1");
        copy_.replace("project.json", "\"code\": \"de\"", "\"code\": \"pl\"");
        copy_.removeLine("project.json", "  {\"number\": 3, \"code\": \"ar\"");
        copy_.removeLine("project.json", "  {\"number\": 4, \"code\": \"zh\"");
        copy_.replace("project.json", "\"name\": \"English\"},", "\"name\": \"English\"}");
        for (const char* const code : {"de", "ar", "zh"})
            copy_.remove(std::string{"Texts/"} + code + ".txt");
        std::string texts = copy_.content("Texts/en.txt");
        for (const machine::PanelWord& word : machine::panelWords())
            if (texts.find('\n' + std::string{word.key} + " =") == std::string::npos)
                texts += std::string{word.key} + " = " + word.english + '\n';
        copy_.write("Texts/pl.txt", texts);
    }
    std::string found() const
    {
        std::string text = checkProject(copy_.path(), plainReader).text;
        // The rest is about the servos that are not in use.
        std::string lines;
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = text.find('\n', at) + 1;
            if (text.compare(at, 6, "Texts/") == 0) lines += text.substr(at, end - at);
            at = end;
        }
        return lines;
    }

    ProjectCopy copy_;
};

} // namespace

TEST_F(TextsOfTwoLanguages, LackNothingWithAllWords) { EXPECT_EQ(found(), ""); }

TEST_F(TextsOfTwoLanguages, LackThePanelsWordsInOneFinding)
{
    copy_.removeLine("Texts/pl.txt", "Panel.Cancel =");
    copy_.removeLine("Texts/pl.txt", "Panel.TooLarge =");
    copy_.removeLine("Texts/pl.txt", "Panel.Times =");
    copy_.append("Texts/pl.txt", "Panel.Times =\n");
    copy_.removeLine("Texts/en.txt", "Panel.Cancel =");
    const std::string text = found();
    EXPECT_NE(text.find("Texts/pl.txt: 3 of the panel's own words are missing: \"Panel.Cancel\", "
                        "\"Panel.TooLarge\" and \"Panel.Times\": the panel shows English ones\n"),
        std::string::npos)
        << text;
    EXPECT_EQ(text.find("is missing here"), std::string::npos) << text;
}

TEST_F(TextsOfTwoLanguages, DoNotLackAKeyThatNobodyAsksFor)
{
    copy_.append("Texts/pl.txt", "Panel.Cancl = x\n");
    const std::string line = std::to_string(copy_.line("Texts/pl.txt", "Panel.Cancl"));
    EXPECT_EQ(found(), "Texts/pl.txt:" + line + ": nobody asks for \"Panel.Cancl\"; is it misspelt?\n");
}

TEST_F(TextsOfTwoLanguages, NamesTheLineOfAKeyThatNobodyAsksFor)
{
    copy_.append("Texts/pl.txt", "Panel.Cancl = x\n");
    copy_.append("Texts/en.txt", "Panel.Cancl = x\n");
    // A machine that there is not, a misspelt word, and what is asked for in other states.
    for (const char* const file : {"Texts/pl.txt", "Texts/en.txt"})
        copy_.append(file,
            "Servo.M9.Servo1.1 = x\nSevro.M1.Servo1.1 = x\nServo.M1.Servo33.5 = x\nStandard.1999 = x\n"
            "Panel.Screen.4711 = x\n");
    const auto line = [&](const std::string& file, const std::string& key) {
        return file + ':' + std::to_string(copy_.line(file, key + " =")) + ": nobody asks for \"" + key
            + "\"; is it misspelt?\n";
    };
    std::string expected;
    for (const char* const file : {"Texts/en.txt", "Texts/pl.txt"})
        for (const char* const key :
            {"Panel.Cancl", "Servo.M9.Servo1.1", "Sevro.M1.Servo1.1", "Panel.Screen.4711"})
            expected += line(file, key);
    EXPECT_EQ(found(), expected);
}

TEST_F(TextsOfTwoLanguages, ListsTheFirstTwentyOfManyKeys)
{
    for (int i = 10; i < 35; ++i)
        copy_.append("Texts/en.txt", "Servo.M1.Servo33." + std::to_string(i) + " = x\n");
    const std::string text = found();
    EXPECT_EQ(
        text.rfind("Texts/pl.txt: 25 texts of other languages are missing here: \"Servo.M1.Servo33.10\", "
                   "\"Servo.M1.Servo33.11\", ",
            0),
        0U)
        << text;
    EXPECT_NE(text.find("\"Servo.M1.Servo33.29\" and 5 more: the operator sees"), std::string::npos) << text;
    EXPECT_EQ(text.find("Servo33.30"), std::string::npos) << text;
}

TEST(PanelWords, HaveEachAKeyAndAWordInEveryTongue)
{
    for (const machine::PanelWord& word : machine::panelWords()) {
        EXPECT_EQ(word.key.substr(0, 6), "Panel.");
        EXPECT_STREQ(word.in("de-AT"), word.german);
        EXPECT_STREQ(word.in("pl"), word.english);
        EXPECT_EQ(&machine::panelWord(word.text), &word);
    }
    EXPECT_TRUE(machine::speaks("zh_TW"));
    EXPECT_FALSE(machine::speaks("pl"));
}

TEST(PanelWords, StandAllInTheEngineersGuide)
{
    const std::string guide = servopanel::testing::testFile("../docs/engineer.md");
    std::size_t rows = 0;
    for (std::size_t at = guide.find("\n| `Panel."); at != std::string::npos;
         at = guide.find("\n| `Panel.", at + 1)) {
        const std::string key = guide.substr(at + 4, guide.find('`', at + 4) - at - 4);
        // Names of things of the project have rows of their own.
        if (key.find('<') == std::string::npos && key != "Panel.Title") ++rows;
    }
    EXPECT_EQ(rows, machine::panelWords().size());
    for (const machine::PanelWord& word : machine::panelWords()) {
        const std::string row = "\n| `" + std::string{word.key} + "` | " + word.english + " |";
        EXPECT_NE(guide.find(row), std::string::npos) << row;
    }
}

// The file, or the folder, is there: that it is missing in the right letters is not told beside it.
TEST(TextFiles, InOtherLettersAreToldOnce)
{
    const servopanel::tests::TemporaryFolder folder;
    folder.file("Texts/DE.txt", "a = b\n");
    folder.file("Texts/en.txt", "a = b\n");
    const auto report = [&] {
        CheckedProject project{
            folder.path(), portable::PathMapping{folder.path()}, {}, JsonLines{""}, {}, {}};
        for (const char* const code : {"de", "en"})
            project.file.languages.push_back({0, code, code, false, {}, false});
        Findings findings;
        checkTextFiles(project, findings);
        checkLetterCase(project, findings);
        return findings.text();
    };
    EXPECT_EQ(report(), "Texts/DE.txt: must be named de.txt, in these letters: the panel does not find it\n");
    fs::rename(folder.path() / "Texts", folder.path() / "texts");
    EXPECT_EQ(report(), "texts: must be named Texts, in these letters: the panel does not find it\n");
}

} // namespace servopanel::check::tests

#include "look/longest_project.h"

#include "machine/texts.h"
#include "panel/look/panel_text.h"

#include <gtest/gtest.h>

#include <fstream>

using namespace servopanel;
using look::LongestProject;
using look::padded;

TEST(Padded, IsLongerByThirtyPercentOfItsCharacters)
{
    EXPECT_EQ(padded("Vorschub des Bandes"), "Vorschub des Bandes Vorsc");
    EXPECT_EQ(padded("Halt"), "HaltHa");
    EXPECT_EQ(padded(""), "");
}

TEST(Padded, KeepsTheUnit)
{
    EXPECT_EQ(padded("Vorschub;mm/s"), "VorschubVor;mm/s");
    EXPECT_EQ(padded(";mm"), ";mm");
}

TEST(LongestProject, TakesTheLongestTextOfAllLanguages)
{
    QTemporaryDir source;
    const std::filesystem::path folder = source.path().toStdString();
    std::filesystem::create_directories(folder / "Texts");
    std::ofstream{folder / "Texts" / "de.txt"} << "A = Drehzahl;1/min\nB = Halt\n";
    std::ofstream{folder / "Texts" / "en.txt"} << "A = Speed;revs/min\nB = Standstill\n";
    const LongestProject project{folder, "de", LongestProject::Padding::None};
    const machine::Texts texts = machine::Texts::load(project.folder() / "Texts" / "de.txt");
    EXPECT_EQ(texts.text("A"), "Drehzahl;revs/min");
    EXPECT_EQ(texts.text("B"), "Standstill");
    EXPECT_EQ(texts.text(panel::panelTextKey(panel::PanelText::Back)), "Zurück");
    EXPECT_TRUE(texts.problems().empty());

    const LongestProject longer{folder, "de", LongestProject::Padding::ThirtyPercent};
    const machine::Texts padded = machine::Texts::load(longer.folder() / "Texts" / "de.txt");
    EXPECT_EQ(padded.text("A"), "DrehzahlDre;revs/min");
    EXPECT_EQ(padded.text(panel::panelTextKey(panel::PanelText::Back)), "ZurückZu");
    EXPECT_TRUE(padded.problems().empty());
}

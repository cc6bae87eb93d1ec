// Numbers that the panel draws by itself, in a language that has digits of its own.
#include "look/screen.h"

#include "panel/window/other_screen.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

using namespace servopanel::look;
namespace panel = servopanel::panel;

namespace {

bool hasLatinDigit(const QString& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// What is written on the widgets of these classes in a state.
QStringList written(const std::string& state, const std::vector<std::string>& classes)
{
    const DemoProject demo;
    const std::filesystem::path file = demo.folder() / "project.json";
    std::ifstream in{file};
    std::string text{std::istreambuf_iterator<char>{in}, {}};
    in.close();
    const std::string direction = "\"direction\": \"rtl\"";
    const std::size_t at = text.find(direction);
    EXPECT_NE(at, std::string::npos);
    text.insert(at + direction.size(), ", \"digits\": \"arabic-indic\"");
    std::ofstream{file} << text;

    QStringList all;
    const auto found =
        std::find_if(states().begin(), states().end(), [&](const State& each) { return each.name == state; });
    show({demo.folder(), "ar"}, *found, [&](panel::Panel& shown) {
        for (const Piece& piece : takeIn(shown).pieces)
            if (std::find(classes.begin(), classes.end(), plainName(*piece.widget)) != classes.end())
                for (const PaintedText& each : piece.painting.texts)
                    all += each.text;
    });
    return all;
}

} // namespace

TEST(Digits, OfTheTrendAreThoseOfTheLanguage)
{
    const QStringList texts = written("trend-frozen", {"TrendPlot", "TrendLegend"});
    EXPECT_GT(texts.size(), 20); // axes, times and the finger's place
    for (const QString& text : texts)
        EXPECT_FALSE(hasLatinDigit(text)) << text.toStdString();
}

TEST(Digits, OfAStandInForAnotherScreenAreThoseOfTheLanguage)
{
    const QStringList texts = written("other-screen", {"OtherScreen"});
    EXPECT_GE(texts.size(), 2);
    for (const QString& text : texts)
        EXPECT_FALSE(hasLatinDigit(text)) << text.toStdString();
}

TEST(OtherScreen, EndsALongTitleWithASign)
{
    QWidget stage;
    stage.resize(800, 600);
    panel::OtherScreen screen{&stage, QString(300, u'x'), "Screen 1111", "Back"};
    const Painting painting = paintingOf(screen);
    ASSERT_FALSE(painting.texts.empty());
    EXPECT_EQ(painting.leftOut.size(), 1U);
    for (const PaintedText& each : painting.texts)
        EXPECT_TRUE(each.room.contains(each.ink)) << each.text.toStdString();
}

// Every page and dialogue looks as it did when somebody last looked at it, and as the manual shows it. The pictures are
// renewed, once they have been looked at again, by ./test --renew-pictures.
#include "look/few_colours.h"
#include "look/machine_look.h"
#include "look/picture_compare.h"
#include "look/screen.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <iostream>
#include <set>
#include <vector>

using namespace servopanel::look;
namespace panel = servopanel::panel;

namespace {

struct Series {
    int resolution;
    std::string language;
};

// Every state is seen in the first series, in one of the others in Latin letters, and in one from right to left or in
// Chinese.
const std::vector<Series> seriesOfPictures{{1280, "de"}, {1024, "en"}, {800, "de"}, {800, "en"}, {1024, "de"},
    {1280, "en"}, {1280, "ar"}, {1024, "zh"}, {800, "ar"}, {800, "zh"}, {1024, "ar"}};
constexpr std::size_t turns = 5; // series that the states take turns in, twice

std::vector<std::size_t> allSeries()
{
    std::vector<std::size_t> all(seriesOfPictures.size());
    for (std::size_t i = 0; i < all.size(); ++i)
        all[i] = i;
    return all;
}

std::string seriesName(const ::testing::TestParamInfo<std::size_t>& info)
{
    const Series& series = seriesOfPictures[info.param];
    return std::to_string(series.resolution) + "_" + series.language;
}

// What README and manual show: docs/images/<name>.png.
struct ManualPicture {
    std::string name;
    std::string state;
    Series series;
};
const std::vector<ManualPicture> picturesOfTheManual{{"menu", "menu", {1280, "en"}},
    {"page", "page-full", {1280, "en"}}, {"changed", "page-changed", {1024, "de"}},
    {"mask", "mask-too-large", {1024, "en"}}, {"refused", "page-refused", {1024, "en"}},
    {"stale", "page-no-link", {1024, "en"}}, {"diagnosis", "diagnosis-1", {1024, "en"}},
    {"trend", "trend-frozen", {1024, "en"}}, {"arabic", "mask-over-right", {1024, "ar"}},
    {"chinese", "page-full", {800, "zh"}}};

const std::filesystem::path tests = SERVOPANEL_TESTS_DIR;
const std::filesystem::path pictures = tests / "look" / "pictures";
const std::filesystem::path manual = tests.parent_path() / "docs" / "images";
const std::filesystem::path differences = LOOK_DIFFERENCES;

bool belongs(std::size_t state, std::size_t series)
{
    return series == 0 || state % turns == (series - 1) % turns;
}

std::string nameOf(std::size_t state, std::size_t series)
{
    return states()[state].name + "-" + std::to_string(seriesOfPictures[series].resolution) + "-"
        + seriesOfPictures[series].language;
}

bool isRenewing() { return qEnvironmentVariableIntValue("PANEL_UPDATE_PICTURES") != 0; }

QString toQt(const std::filesystem::path& path) { return QString::fromStdString(path.string()); }

class ManualPictures : public ::testing::Test {
protected:
    void SetUp() override
    {
        const std::string here = lookOfThisMachine();
        const std::string recorded = recordedLook(pictures / "drawn-with.txt");
        if (here == recorded || isRenewing()) return;
        // Fonts and renderer get their fixes there as well; what that changes is to be seen.
        if (isReferenceSystem())
            std::cout << "drawn with\n" << here << "the pictures in the repository with\n" << recorded;
        else
            GTEST_SKIP() << "These pictures were drawn with\n"
                         << recorded << "and mean nothing here:\n"
                         << here;
    }
    void compareOrRenew(const std::filesystem::path& file, const QImage& now)
    {
        if (isRenewing()) {
            save(now, file);
            return;
        }
        const QImage reference{toQt(file)};
        if (reference.isNull()) {
            ADD_FAILURE() << "There is no picture " << file.string();
            return;
        }
        const Comparison result = compare(reference, now);
        if (result.isSame()) return;
        std::filesystem::create_directories(differences);
        const std::filesystem::path difference = differences / file.filename();
        sideBySide(reference, now, result).save(toQt(difference));
        ADD_FAILURE() << file.string() << " looks different in " << result.pixels
                      << " pixels; reference, now and difference: " << difference.string();
    }
    static void save(const QImage& picture, const std::filesystem::path& file)
    {
        // A picture that still passes stays, so that renewing changes only what changed.
        const QImage before{toQt(file)};
        if (!before.isNull() && compare(before, picture).isSame()) return;
        std::filesystem::create_directories(file.parent_path());
        ASSERT_TRUE(withFewColours(picture).save(toQt(file), "PNG", 0)) << file.string();
    }
};

class Pictures : public ManualPictures, public ::testing::WithParamInterface<std::size_t> { };

} // namespace

TEST_P(Pictures, LookAsTheyDid)
{
    const DemoProject demo;
    const Series& series = seriesOfPictures[GetParam()];
    if (isRenewing()) recordLook(pictures / "drawn-with.txt");
    for (std::size_t i = 0; i < states().size(); ++i) {
        if (!belongs(i, GetParam())) continue;
        show({demo.folder(), series.language, series.resolution}, states()[i], [&](panel::Panel& shown) {
            compareOrRenew(
                pictures / (nameOf(i, GetParam()) + ".png"), shown.window().stage().grab().toImage());
        });
    }
}

INSTANTIATE_TEST_SUITE_P(Series, Pictures, ::testing::ValuesIn(allSeries()), seriesName);

TEST_F(ManualPictures, LookAsTheyDid)
{
    const DemoProject demo;
    for (const ManualPicture& each : picturesOfTheManual) {
        const auto state = std::find_if(states().begin(), states().end(),
            [&](const State& candidate) { return candidate.name == each.state; });
        ASSERT_NE(state, states().end()) << each.state;
        show({demo.folder(), each.series.language, each.series.resolution}, *state, [&](panel::Panel& shown) {
            compareOrRenew(manual / (each.name + ".png"), shown.window().stage().grab().toImage());
        });
    }
}

// A state that is gone leaves no picture behind.
TEST(PictureFiles, AreThoseOfTheStates)
{
    std::set<std::string> known;
    for (std::size_t i = 0; i < states().size(); ++i)
        for (const std::size_t number : allSeries())
            if (belongs(i, number)) known.insert(nameOf(i, number) + ".png");
    for (const auto& file : std::filesystem::directory_iterator{pictures}) {
        if (file.path().extension() != ".png") continue;
        if (isRenewing() && known.count(file.path().filename().string()) == 0)
            std::filesystem::remove(file.path());
        else
            EXPECT_EQ(known.count(file.path().filename().string()), 1U) << file.path().string();
    }
}

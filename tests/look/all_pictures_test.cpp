// Every page and dialogue in every size and language, for somebody who wants to look at all of them:
//   PANEL_ALL_PICTURES=FOLDER look_test --gtest_filter='*AllPictures*'
// Without the variable there is nothing to do and no test.
#include "look/screen.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <tuple>
#include <vector>

using namespace servopanel::look;
namespace panel = servopanel::panel;

namespace {

std::string askedFolder() { return qEnvironmentVariable("PANEL_ALL_PICTURES").toStdString(); }

template <class Value>
std::vector<Value> whenAsked(std::vector<Value> values)
{
    return askedFolder().empty() ? std::vector<Value>{} : values;
}

class AllPictures : public ::testing::TestWithParam<std::tuple<int, std::string>> { };

} // namespace

TEST_P(AllPictures, AreDrawn)
{
    const DemoProject demo;
    const auto& [resolution, language] = GetParam();
    const std::filesystem::path folder = askedFolder();
    std::filesystem::create_directories(folder);
    const std::string ending = '-' + std::to_string(resolution) + '-' + language + ".png";
    for (const State& state : states())
        show({demo.folder(), language, resolution}, state, [&](panel::Panel& shown) {
            const std::filesystem::path file = folder / (state.name + ending);
            EXPECT_TRUE(shown.window().stage().grab().save(QString::fromStdString(file.string()))) << file;
        });
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(AllPictures);
INSTANTIATE_TEST_SUITE_P(Screens, AllPictures,
    ::testing::Combine(::testing::ValuesIn(whenAsked<int>({1280, 1024, 800})),
        ::testing::ValuesIn(whenAsked<std::string>({"de", "en", "ar", "zh"}))));

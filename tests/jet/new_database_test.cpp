#include "jet/sample_definitions.h"

#include <gtest/gtest.h>

namespace servopanel::jet {

namespace {

using namespace testing;

class NewDatabaseForms : public ::testing::TestWithParam<NewDatabaseOptions> { };

TEST_P(NewDatabaseForms, ComesBackAsItWasGiven)
{
    for (const std::size_t count : {0U, 1U, 60U, 2000U}) {
        const std::vector<DefinitionRow> rows = sampleRows(count);
        EXPECT_EQ(exactly(SampleProject(rows, GetParam()).rows()), exactly(rows));
    }
}

TEST_P(NewDatabaseForms, IsTheSameFileForTheSameRows)
{
    EXPECT_EQ(
        newDefinitionDatabase(sampleRows(60), GetParam()), newDefinitionDatabase(sampleRows(60), GetParam()));
}

INSTANTIATE_TEST_SUITE_P(All, NewDatabaseForms, ::testing::ValuesIn(allForms()),
    [](const auto& form) { return nameOf(form.param); });

TEST(NewDatabase, RefusesATextThatTheFormatCannotHold)
{
    std::vector<DefinitionRow> rows = sampleRows(3);
    rows[1].variable = std::string{"Привет"};
    EXPECT_EQ(SampleProject(rows).rows()[1].variable, rows[1].variable);
    const basic::Error error =
        errorOf([&] { return newDefinitionDatabase(rows, {.version = JetVersion::Jet3}); });
    EXPECT_EQ(error.description, "row 2: a text has a character that a Jet 3 file cannot hold");

    rows[1].variable = std::string(256, 'x');
    EXPECT_EQ(errorOf([&] { return newDefinitionDatabase(rows); }).description,
        "row 2: column 'var_name' takes no more than 255 characters");
}

// Its bytes would mark a compressed text.
TEST(NewDatabase, RefusesATextThatWouldComeBackAsAnotherOne)
{
    const std::string mark = "\uFEFF";
    std::vector<DefinitionRow> rows = sampleRows(3);
    for (const TextForm form : {TextForm::Plain, TextForm::Compressed}) {
        for (const std::string& text : {mark, mark + "Speed", mark + "Ā"}) {
            rows[1].variable = text;
            EXPECT_EQ(errorOf([&] { return newDefinitionDatabase(rows, {.textForm = form}); }).description,
                "row 2: a text begins with the invisible character U+FEFF");
        }
        for (const std::string& text : {"Speed" + mark, std::string{"\u00FF\u00FE"}, std::string{"\uFFFE"}}) {
            rows[1].variable = text;
            EXPECT_EQ(SampleProject(rows, {.textForm = form}).rows()[1].variable, rows[1].variable);
        }
    }
}

TEST(NewDatabase, RefusesMoreRowsThanItsMapCanList)
{
    EXPECT_EQ(SampleProject(sampleRows(9000)).rows().size(), 9000U);
    const basic::Error error = errorOf([&] { return newDefinitionDatabase(sampleRows(40000)); });
    EXPECT_EQ(error.description, "there are more rows than a new file can have");
}

} // namespace

} // namespace servopanel::jet

#include "jet/sample_definitions.h"
#include "jet/servo_defs/definition_list.h"

#include <gtest/gtest.h>

#include <cmath>

namespace servopanel::jet {

namespace {

using namespace testing;

TEST(DefinitionCsv, BringsBackEveryDefinition)
{
    std::vector<DefinitionRow> rows = sampleRows(500);
    rows[0].variable = std::string{"=HYPERLINK(\"x\")"};
    rows[1].machineType = std::string{"'-1"};
    rows[2].max = std::nextafter(0.1, 1.0);
    rows[3].max = 5e-324;
    rows[4].max = -std::numeric_limits<double>::max();
    EXPECT_EQ(exactly(fromCsv(toCsv(rows)).rows), exactly(rows));
}

constexpr std::string_view header = "machine_type,var_name,abs_max,abs_min,offset_or_bitno,Max,Min,Pass\n";

std::string refusalOf(std::string_view line)
{
    return errorOf([&] { fromCsv(std::string{header} + std::string{line}); }).description;
}

TEST(DefinitionCsv, TakesColumnsInAnyOrderAndCase)
{
    const auto rows =
        fromCsv("PASS,min,max,offset_or_bitno,ABS_MIN,abs_max,Var_Name,machine_type\n1,2,3,4.0,5,6,v,m\n")
            .rows;
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].pass, basic::Variant{std::int16_t{1}});
    EXPECT_EQ(rows[0].element, basic::Variant{std::int16_t{4}});
    EXPECT_EQ(rows[0].absMax, basic::Variant{6.0});
    EXPECT_EQ(rows[0].machineType, basic::Variant{"m"});
}

TEST(DefinitionCsv, RefusesWhatIsNoFiniteNumber)
{
    for (const std::string cell : {"nan", "NaN", "-nan", "inf", "-inf", "+inf", "infinity", "+-5", "++5",
             "-+5", "--5", "+", "-", "1e400", "0x10"}) {
        EXPECT_EQ(refusalOf("m,v,1,2,3," + cell + ",5,6\n"),
            "line 2: '" + cell + "' cannot be a value of column 'Max'");
        EXPECT_EQ(refusalOf("m,v,1,2,3,4,5," + cell + "\n"),
            "line 2: '" + cell + "' cannot be a value of column 'Pass'");
    }
    for (const std::string cell : {"+5", "5", "5.0", "0.5e1"})
        EXPECT_EQ(
            fromCsv(std::string{header} + "m,v,1,2,3," + cell + ",5,6\n").rows[0].max, basic::Variant{5.0});
}

TEST(DefinitionCsv, RefusesWhatIsNoDefinition)
{
    EXPECT_EQ(refusalOf("m,v,1,2,3,4,5,6\nm,v,1,2,x,4,5,6\n"),
        "line 3: 'x' cannot be a value of column 'offset_or_bitno'");
    EXPECT_EQ(
        refusalOf("m,v,1,2,3.5,4,5,6\n"), "line 2: '3.5' cannot be a value of column 'offset_or_bitno'");
    EXPECT_EQ(refusalOf("m,v,1,2,3,4,5,40000\n"), "line 2: '40000' cannot be a value of column 'Pass'");
    EXPECT_EQ(refusalOf("m,v,1e999,2,3,4,5,6\n"), "line 2: '1e999' cannot be a value of column 'abs_max'");
    EXPECT_EQ(refusalOf("m,v,1 2,2,3,4,5,6\n"), "line 2: '1 2' cannot be a value of column 'abs_max'");
    EXPECT_EQ(refusalOf("m,v,1,2,3,4,5\n"), "line 2: it has 7 cells, not 8");
    EXPECT_EQ(
        errorOf([] { fromCsv(""); }).description, "it is empty; the first line has to name the columns");
    EXPECT_EQ(
        errorOf([] { fromCsv("machine_type,limit\n"); }).description, "line 1: there is no column 'limit'");
    EXPECT_EQ(errorOf([] { fromCsv("Max,Max\n"); }).description, "line 1: column 'Max' comes twice");
    EXPECT_EQ(errorOf([] { fromCsv("Max,Min\n"); }).description, "line 1: column 'machine_type' is missing");
}

} // namespace

} // namespace servopanel::jet

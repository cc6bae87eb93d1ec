#include "portable/csv.h"

#include "basic/error.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace servopanel::portable {

namespace {

std::vector<std::vector<CsvCell>> cellsOf(std::string_view text)
{
    std::vector<std::vector<CsvCell>> cells;
    for (const CsvLine& line : parseCsv(text))
        cells.push_back(line.cells);
    return cells;
}

using Lines = std::vector<std::vector<CsvCell>>;

std::string refusalOf(std::string_view text)
try {
    parseCsv(text);
    return {};
} catch (const basic::Error& error) {
    EXPECT_EQ(error.number, 13);
    return error.description;
}

} // namespace

TEST(Csv, TellsNoValueFromAnEmptyText)
{
    EXPECT_EQ(cellsOf("a,,\"\"\n"), (Lines{{"a", std::nullopt, ""}}));
    EXPECT_EQ(csvLine({"a", std::nullopt, ""}), "a,,\"\"\n");
}

TEST(Csv, ReadsQuotesLineEndsAndSemicolons)
{
    EXPECT_EQ(cellsOf("a,\"b,\"\"c\"\"\nd\"\r\n\r\ne,f"), (Lines{{"a", "b,\"c\"\nd"}, {"e", "f"}}));
    EXPECT_EQ(cellsOf("\xEF\xBB\xBF"
                      "a;b\n1,5;2"),
        (Lines{{"a", "b"}, {"1,5", "2"}}));
}

TEST(Csv, NamesTheLineThatItCannotRead)
{
    EXPECT_EQ(refusalOf("a\n\"b\"c\n"), "line 2: there is something behind a closing quote");
    EXPECT_EQ(refusalOf("a\nb\n\"c\n\n"), "line 3: a quote is not closed");
    EXPECT_EQ(refusalOf("a\nb\n\xFF\n"), "line 3: it is not UTF-8");
}

TEST(Csv, BringsBackEveryText)
{
    for (const std::string text : {"plain", "=1+1", "'=1+1", "''@x", "-5", "+a", "\tb", "\rc", "\nd", "\t=1",
             "'\n=1", "'quoted'", "'", "''", "", " ", "a,b;c", "\"", "ä\nö"}) {
        const std::string safe = withoutFormula(text);
        EXPECT_EQ(safe.find_first_of("=+-@\t\r\n") == 0, false) << text;
        EXPECT_EQ(withFormula(safe), text);
        EXPECT_EQ(cellsOf(csvLine({"x", safe})), (Lines{{"x", safe}}));
    }
}

TEST(Csv, KeepsControlCharactersFromTheTerminal)
{
    EXPECT_EQ(shownText("a\n\r\t\x1B[2J\x7F\xC3\xA4"), "a\\n\\r\\t\\x1B[2J\\x7F\xC3\xA4");
}

} // namespace servopanel::portable

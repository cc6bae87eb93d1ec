// What is wrong with the signs of a JSON text, in the words of those who write it by hand.
#include "machine/json_text.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <ostream>

namespace servopanel::machine {

namespace {

struct Case {
    std::string text;
    std::string problem; // "line 2: reason"
    // Otherwise GoogleTest prints the bytes of it, unset ones as well.
    friend void PrintTo(const Case& value, std::ostream* out) { *out << value.problem; }
};

class JsonMistakeTest : public ::testing::TestWithParam<Case> { };

} // namespace

TEST_P(JsonMistakeTest, IsNamedWithItsLine)
{
    std::vector<Problem> problems;
    readJson(GetParam().text, "project.json", problems);
    ASSERT_EQ(problems.size(), 1U);
    EXPECT_EQ(problems[0].place + ": " + problems[0].reason, GetParam().problem) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(Mistakes, JsonMistakeTest,
    ::testing::Values(
        // The comma belongs to the line before that at which a parser stops.
        Case{"{\n \"level\": 5\n\n \"input\": -1\n}", "line 2: a comma is missing behind 5"},
        Case{"{\n \"title\": \"a \\\" b\"\n \"input\": -1\n}",
            "line 2: a comma is missing behind \"a \\\" b\""},
        Case{"{\n \"a\": [1,\n 2\n 3]\n}", "line 3: a comma or \"]\" is missing behind 2"},
        Case{"{\n \"a\": [{\"b\": 1}\n {\"b\": 2}]\n}", "line 2: a comma or \"]\" is missing behind \"}\""},
        Case{"{\n \"a\": true\n \"b\": 2\n}", "line 2: a comma is missing behind true"},
        Case{"{\n \"a\": 1,\n}", "line 2: there is a comma too many before \"}\""},
        Case{"{\n \"a\": [1,\n 2,\n ]\n}", "line 3: there is a comma too many before \"]\""},
        Case{"{\n \"a\": [1, , 2]}",
            "line 2: \",\" is no value: that is a number, a text in quotes, true, false, a list or an "
            "object"},
        Case{"{\n \"a\" 1\n}", "line 2: a colon is missing behind \"a\""},
        Case{"{\n \"a\": 1,\n b: 2\n}", "line 3: b stands where a name in quotes belongs"},
        Case{"{\n \"a\": yes\n}",
            "line 2: yes is no value: that is a number, a text in quotes, true, false, a list or an object"},
        Case{"{\n \"a\": \"b\n \"c\": 1\n}", "line 2: a text has no closing quote (\")"},
        Case{"{\n \"a\": \"b", "line 2: a text has no closing quote (\")"},
        Case{"{\n \"a\": \"C:\\Temp\"\n}", "line 2: a backslash within a text is written twice (\\\\)"},
        Case{"{\n \"a\": \"\xFC\"\n}", "line 2: is not in UTF-8; save the file as UTF-8"},
        Case{"{\n \"a\": [1, 2}\n}", "line 2: \"}\" closes what another bracket has opened"},
        Case{"{\n \"a\": {\n  \"b\": 1\n\n", "line 3: the file breaks off here: a \"}\" or \"]\" is missing"},
        Case{"{\n \"a\": 0.", "line 2: the file breaks off here: a \"}\" or \"]\" is missing"},
        Case{"{\n \"a\": tr\n", "line 2: the file breaks off here: a \"}\" or \"]\" is missing"},
        Case{"{\n \"a\": 007,\n \"b\": 1\n}",
            "line 2: 007 is no value: that is a number, a text in quotes, true, false, a list or an object"},
        Case{"{\n \"a\": [1, 02]\n}",
            "line 2: 02 is no value: that is a number, a text in quotes, true, false, a list or an object"},
        Case{"{\n \"a\": 1e400\n}", "line 2: 1e400 is too large for a number"},
        Case{"{\n \"a\": [1, 2,\n \"b\": 3\n}", "line 2: a \"]\" is missing before \"b\""},
        Case{"{\n \"a\": [1, 2\n \"b\": 3\n}", "line 2: a comma or \"]\" is missing behind 2"},
        Case{"\xFF\xFE{", "line 1: is in UTF-16; save the file as UTF-8"},
        Case{std::string{"{\n \"a\": 1,\n\0\0\0", 15},
            "line 3: has characters of the number 0: it is damaged, or not in UTF-8"},
        Case{"{\n}\n}\n", "line 3: \"}\" stands behind the end of the project"},
        Case{"", "line 1: the file is empty"}, Case{" \n ", "line 1: the file is empty"}));

} // namespace servopanel::machine

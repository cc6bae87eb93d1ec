#include "portable/profile_text.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using servopanel::portable::profileNumber;

std::optional<std::string> profileLookUp(
    const std::vector<std::string>& lines, std::string_view section, std::string_view entry)
{
    std::string text;
    for (const std::string& line : lines)
        text += line + "\r\n";
    return servopanel::portable::profileLookUp(text, section, entry);
}

struct Case {
    const char* name;
    std::vector<std::string> lines;
    std::string_view section;
    std::string_view entry;
    std::optional<std::string> expected;
};

void PrintTo(const Case& row, std::ostream* out) { *out << row.name; }

class ProfileLookUp : public testing::TestWithParam<Case> { };

TEST_P(ProfileLookUp, GivesWhatWindowsWouldGive)
{
    const Case& row = GetParam();
    EXPECT_EQ(profileLookUp(row.lines, row.section, row.entry), row.expected);
}

const Case cases[] = {
    {"plain", {"[S]", "a=1"}, "S", "a", "1"},
    {"section_without_case", {"[SerVo]", "a=1"}, "sERvO", "a", "1"},
    {"entry_without_case", {"[S]", "Breite=1"}, "S", "bREITE", "1"},
    {"umlauts_without_case", {"[Größe]", "Länge=1"}, "GRÖßE", "LÄNGE", "1"},
    {"blanks_around_equals", {"[S]", "a \t=\t 1"}, "S", "a", "1"},
    {"blanks_before_and_after_the_line", {"  [S]  ", "\t a=1 \t "}, "S", "a", "1"},
    {"blanks_inside_stay", {"[S]", "a=1  2"}, "S", "a", "1  2"},
    {"blanks_in_the_brackets", {"[ S ]", "a=1"}, "S", "a", "1"},
    {"blanks_in_the_names_asked_for", {"[S]", "a=1"}, " S ", " a\t", "1"},
    {"entry_name_with_blank", {"[S]", "a b=1"}, "S", "a b", "1"},
    {"double_quotes", {"[S]", "a=\"1\""}, "S", "a", "1"},
    {"single_quotes", {"[S]", "a='1'"}, "S", "a", "1"},
    {"quotes_keep_blanks", {"[S]", "a = \" 1 \" "}, "S", "a", " 1 "},
    {"one_pair_of_quotes_only", {"[S]", "a=\"\"1\"\""}, "S", "a", "\"1\""},
    {"different_quotes_stay", {"[S]", "a=\"1'"}, "S", "a", "\"1'"},
    {"single_quote_sign_stays", {"[S]", "a=\""}, "S", "a", "\""},
    {"empty_quotes", {"[S]", "a=\"\""}, "S", "a", ""},
    {"first_equals_counts", {"[S]", "a=b=c"}, "S", "a", "b=c"},
    {"first_entry_counts", {"[S]", "a=1", "a=2"}, "S", "a", "1"},
    {"first_section_counts", {"[S]", "a=1", "[T]", "[S]", "a=2"}, "S", "a", "1"},
    {"second_section_of_a_name_is_not_seen", {"[S]", "a=1", "[S]", "b=2"}, "S", "b", std::nullopt},
    {"other_section_is_not_seen", {"[S]", "[T]", "a=1"}, "S", "a", std::nullopt},
    {"before_any_section", {"a=1", "[S]"}, "", "a", std::nullopt},
    {"missing_section", {"[S]", "a=1"}, "T", "a", std::nullopt},
    {"missing_entry", {"[S]", "a=1"}, "S", "b", std::nullopt},
    {"no_lines", {}, "S", "a", std::nullopt},
    {"line_without_equals_is_no_entry", {"[S]", "a", "a=2"}, "S", "a", "2"},
    {"empty_value_is_there", {"[S]", "a="}, "S", "a", ""},
    {"value_of_blanks_is_empty", {"[S]", "a=  \t"}, "S", "a", ""},
    {"comment_line", {"[S]", ";a=1", "  ; a=2", "a=3"}, "S", "a", "3"},
    {"comment_is_no_section", {"[S]", ";[T]", "a=1"}, "S", "a", "1"},
    {"commented_entry_cannot_be_asked_for", {"[S]", ";a=1"}, "S", ";a", std::nullopt},
    {"semicolon_in_the_value_stays", {"[S]", "a=1;2"}, "S", "a", "1;2"},
    {"text_behind_the_bracket", {"[S] ; servo", "a=1"}, "S", "a", "1"},
    {"bracket_without_end_is_no_section", {"[S]", "[T", "a=1"}, "S", "a", "1"},
    {"empty_entry_is_never_found", {"[S]", "=1"}, "S", "", std::nullopt},
};

INSTANTIATE_TEST_SUITE_P(Rules, ProfileLookUp, testing::ValuesIn(cases),
    [](const auto& test) { return std::string{test.param.name}; });

TEST(ProfileLookUpLength, CutsAfter254Characters)
{
    const std::string longest(254, 'x');
    EXPECT_EQ(profileLookUp({"[S]", "a=" + longest}, "S", "a"), longest);
    EXPECT_EQ(profileLookUp({"[S]", "a=" + longest + "y"}, "S", "a"), longest);
}

TEST(ProfileLookUpLength, CountsCharactersNotBytes)
{
    std::string umlauts;
    for (int i = 0; i < 254; ++i)
        umlauts += "ä";
    EXPECT_EQ(profileLookUp({"[S]", "a=" + umlauts + "ä"}, "S", "a"), umlauts);
}

TEST(ProfileLookUpLength, DropsQuotesBeforeItCuts)
{
    const std::string longest(254, 'x');
    EXPECT_EQ(profileLookUp({"[S]", "a=\"" + longest + "\""}, "S", "a"), longest);
}

TEST(ProfileNumber, IsASignAndTheDigitsThatComeFirst)
{
    const struct {
        std::string_view value;
        std::int32_t number;
    } numbers[]{{"12", 12}, {"007", 7}, {"+3", 3}, {"-4", -4}, {"3 ; winder", 3}, {"0x1F", 31}, {"0X1g", 1},
        {"-0x10", -16}, {"0x", 0}, {"0xg", 0}, {"", 0}, {"-", 0}, {"--1", 0}, {" 1", 0}, {"two", 0},
        {"1.9", 1}, {"2147483648", 2147483647}, {"-99999999999", -2147483647}, {"0xFFFFFFFFF", 2147483647}};
    for (const auto& [value, number] : numbers)
        EXPECT_EQ(profileNumber(value), number) << value;
}

} // namespace

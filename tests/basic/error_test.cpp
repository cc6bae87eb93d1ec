#include "basic/error.h"

#include <gtest/gtest.h>

#include <string_view>

namespace {

using namespace servopanel::basic;

struct Row {
    int number;
    std::string_view text;
};

// The operator reads them in the display of errors.
TEST(Error, HasTheClassicTextOfItsNumber)
{
    const Row rows[]{{5, "Invalid procedure call or argument"}, {6, "Overflow"},
        {9, "Subscript out of range"}, {11, "Division by zero"}, {13, "Type mismatch"},
        {51, "Internal error"}, {53, "File not found"}, {91, "Object variable not set"},
        {94, "Invalid use of Null"}, {360, "Object already loaded"},
        {438, "Object doesn't support this property or method"}, {1000, "Unknown error"}};
    for (const Row& row : rows)
        try {
            raise(static_cast<ErrorNumber>(row.number));
        } catch (const Error& error) {
            EXPECT_EQ(error.number, row.number);
            EXPECT_EQ(error.source, "");
            EXPECT_EQ(error.description, row.text);
        }
}

} // namespace

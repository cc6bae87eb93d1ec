// What a project that was read anew takes over from the one before.
#include "machine/carry_over.h"

#include <gtest/gtest.h>

using namespace servopanel::machine;
using servopanel::basic::Variant;

namespace {

ProjectFile project(std::vector<ProjectFile::Variable> variables)
{
    ProjectFile file;
    file.variables = std::move(variables);
    return file;
}

Variant whole(std::int16_t value) { return Variant{value}; }

class CarryOver : public ::testing::Test {
protected:
    void carry(const ProjectFile& now)
    {
        now.declareVariables(store_);
        carryOver(before_, held_, now, store_);
    }
    void hold(std::string_view name, std::int16_t value)
    {
        before_.variables.push_back({std::string{name}, whole(1)});
        held_.declare(name, whole(value));
    }

    ProjectFile before_;
    VariableStore held_;
    VariableStore store_;
};

} // namespace

TEST_F(CarryOver, KeepsWhatAVariableHoldsWhoseStartValueStandsAsBefore)
{
    hold("a", 7);
    carry(project({{"a", whole(1)}}));
    EXPECT_EQ(*store_.find("a"), whole(7));
}

TEST_F(CarryOver, ANewStartValueCounts)
{
    hold("a", 7);
    carry(project({{"a", whole(2)}}));
    EXPECT_EQ(*store_.find("a"), whole(2));
}

TEST_F(CarryOver, ANewTypeCounts)
{
    hold("a", 7);
    carry(project({{"a", Variant{1.0}}}));
    EXPECT_EQ(*store_.find("a"), Variant{1.0});
}

TEST_F(CarryOver, VariablesComeAndGo)
{
    hold("gone", 7);
    carry(project({{"new", whole(3)}}));
    EXPECT_EQ(store_.find("gone"), nullptr);
    EXPECT_EQ(*store_.find("new"), whole(3));
}

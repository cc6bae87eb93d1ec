// A source of process variables as the integrator's guide declares it, in the place that it names.
#include "basic/error.h"
#include "machine/split_variables.h"
#include "machine/variable_store.h"
#include "platform/process_var_access.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace servopanel {

namespace {

#include "line_controller.h"

std::map<std::string, basic::Variant, std::less<>> line{
    {"Ch1.K1_T_servo_1<.mK1_servoaender_1>", std::int16_t{0}}};

basic::Variant LineController::ReadValue(std::string_view name)
{
    const auto found = line.find(name);
    if (found == line.end()) throw basic::Error{5, "Line controller", std::string{name}};
    return found->second;
}

void LineController::WriteValue(std::string_view name, const basic::Variant& value)
{
    line.insert_or_assign(std::string{name}, value);
}

} // namespace

TEST(IntegratorsGuide, ItsSourceOfVariablesStandsBesideThePanelsOwn)
{
    auto own = std::make_shared<machine::VariableStore>();
    own->declare("Ch-1.intern<.servo_zeiger>", std::int16_t{3});
    machine::SplitVariables all{own, std::make_shared<LineController>()};

    EXPECT_EQ(all.ReadValue("Ch-1.intern<.servo_zeiger>"), basic::Variant{std::int16_t{3}});
    all.WriteValue("Ch1.K1_T_servo_1<.mK1_servoaender_1>", std::int16_t{1});
    EXPECT_EQ(all.ReadValue("Ch1.K1_T_servo_1<.mK1_servoaender_1>"), basic::Variant{std::int16_t{1}});
    EXPECT_THROW(all.ReadValue("Ch1.unknown"), basic::Error);
}

} // namespace servopanel

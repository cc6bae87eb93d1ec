#pragma once

#include <compare>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace servopanel::params {

// A variable of a servo that belongs to its parameters. Of the switches' word each bit is an element.
struct Family {
    std::string_view part; // of the variable's name, one of machine::families: "_servo_para_"
    std::string_view name; // for people: "servo_para"
    int firstField; // field of the page that shows element 0
    int fields; // so many elements have one
    bool isWord; // whole number whose bits are the elements
};

// In the order of the page.
std::span<const Family> parameterFamilies();

// One value among the parameters of a machine. Ordered by servo, family and element.
struct Place {
    int servo = 0;
    std::size_t family = 0; // in parameterFamilies()
    int element = 0; // from 0

    const Family& of() const { return parameterFamilies()[family]; }
    friend auto operator<=>(const Place&, const Place&) = default;
};

// "Ch1.M1_T_servo_3<.mM1_servo_para_3>"; error 6 for a servo's number beyond 16 bits.
std::string variableName(const std::string& machine, int servo, std::string_view family);

// Whose parameters a variable holds.
struct ParameterVariable {
    std::string machine;
    int servo = 0;
    std::size_t family = 0;
};
// Nothing for a variable that is no parameter.
std::optional<ParameterVariable> parameterVariable(std::string_view name);

} // namespace servopanel::params
